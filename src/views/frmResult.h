// The list of what a search has found. While it stands, it drives the card that has searched.
#pragma once

#include "common/ficha.h"
#include "platform/forms/controls.h"
#include "platform/forms/form.h"

#include "ui_frmResult.h"

#include <QString>
#include <QStringList>

// There are two uses, told apart by the caption. The rows are those of the card's adoFiltro; the row chosen by the user
// is shown on the card, its tree is drawn and its dated facts are listed. Each of the three buttons ends the window: it
// puts the card right by itself, and the card gets nothing back.
class FrmResult : public Form, public Ui::FrmResult
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmResult";
    static constexpr auto deIndividuos = "Resultados da pesquisa de indivíduos";
    static constexpr auto deFamilias = "Resultados da pesquisa de famílias";

    FrmResult();

    // What a card calls when its adoFiltro has rows and it shows the first of them: brings the window up with the rows,
    // and with the tree and the facts of the first.
    void mostraResultados(const QString& caption);

    void PreencheFG();
    void Dados(const QString& tipo); // "i": professions, "f": residences
    void PreencheArvore();
    void PreencheArvoreFam();

protected:
    void Form_Load() override;
    bool Form_QueryUnload(UnloadMode mode) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    using Celulas = QStringList (*)(const jet::Recordset& registo);

    // What differs between the two uses.
    struct Uso
    {
        const char* titulos[3];   // of the grid
        double larguras[2];       // parts of the grid's width, 0 hides the column; the last column takes the rest
        const char *info, *facto; // the heading and the second column of the small list
        const char* tipo;         // for Dados()
        Ficha& (*ficha)();
        Celulas celulas;
        void (FrmResult::*arvore)();
        void (FrmResult::*escolhe)();
        void (FrmResult::*aceita)(double numero);
        void (FrmResult::*termina)();
    };
    static const Uso individuos, familias;
    const Uso& uso() const { return caption() == deIndividuos ? individuos : familias; }

    QString chave() const { return dtgProf->textMatrix(dtgProf->row(), 0); } // of the row chosen
    void ajustaColunas();

    void dtgProf_RowColChange();
    void escolheIndividuo();
    void escolheFamilia();

    void cmdOK_Click();
    void aceitaIndividuo(double numero);
    void aceitaFamilia(double numero);
    void cmdT_Click();
    void terminaNoIndividuo();
    void terminaNaFamilia();
    void cmdFechar_Click();
};

FrmResult& frmResult();
