// The list of what a search has found. While it is open, it drives the card that has searched.
#pragma once

#include "common/ficha.h"
#include "platform/forms/controls.h"
#include "platform/forms/form.h"
#include "views/achado.h"

#include "ui_frmResult.h"

#include <QPointer>
#include <QString>

#include <functional>

// The row chosen by the user is shown on the card, its tree is drawn and its dated facts are listed. Each of the three
// buttons closes the window: it accepts the hit, ends the search on it, or drops the results for a new search.
class FrmResult : public Form, private Ui::FrmResult
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmResult";

    // What was searched for.
    enum class Uso
    {
        Individuos,
        Familias
    };
    using Le = std::function<Achado(const jet::Recordset& registo)>;

    FrmResult();

    // What a card calls when its adoFiltro has rows and it shows the first of them: brings the window up with the rows,
    // and with the tree and the facts of the first. `le` makes the hit of a row; it lives as long as the card.
    void mostraResultados(Ficha& ficha, Uso uso, Le le);
    void desenhaArvore(); // of the row chosen

    // A search of this card begins or is shown: if the list of another card's search stands, that one ends as with
    // "&Terminar", on what its card shows.
    static void terminaOutra(const Ficha& ficha);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool Form_QueryUnload(UnloadMode mode) override;
    void Form_Load() override;
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Aspecto;
    static const Aspecto aspectos[]; // of the uses

    const Aspecto& aspecto() const;
    QString chave() const { return dtgProf->textMatrix(dtgProf->row(), 0); } // of the row chosen
    void ajustaColunas();
    void PreencheFG();
    void Dados();

    // frmResult_trees.cpp
    void PreencheArvore(const Achado& achado);
    void PreencheArvoreFam(const Achado& achado);

    void dtgProf_RowColChange();
    void cmdOK_Click();
    void cmdT_Click();
    void termina();
    void cmdFechar_Click();

    QPointer<Ficha> ficha_;
    Uso uso_ = Uso::Familias;
    Le le_;
};

FrmResult& frmResult();
