// The pattern of the seven editors of the place tables.
#pragma once

#include "common/editorDeTabela.h"
#include "common/niveis.h"
#include "common/registoVisto.h"
#include "platform/forms/modes.h"
#include "platform/jet/recordset.h"
#include "store/session.h"

#include <QList>
#include <QString>

#include <optional>
#include <utility>

// A grid of all rows, boxes that show the row chosen there, and the commands that add, alter and delete through the
// cursor. An editor gives its rules as data and as hooks; nothing else stands in its file.
// The working list isn't touched: a new row isn't on it.
class EditorDeLocais : public EditorDeTabela
{
    Q_OBJECT

public:
    using EditorDeTabela::EditorDeTabela;

protected:
    // What the user is told.
    struct Recusas
    {
        QString semNome; // no name, or a number for one
        QString repetido;
    };

    struct Coluna
    {
        QString titulo;
        QString campo;
        int largura = -1; // in pixels; not given: the last one, which takes what is left
    };

    struct Regras
    {
        Nivel nivel = Nivel::Pais;
        QString ordem = {};          // of the rows; empty: as the source gives them
        QList<Coluna> colunas;       // of the grid
        Recusas recusas;             // of an insertion
        Recusas aoAlterar = recusas; // of an alteration
        QList<QWidget*> outros = {}; // what else is disabled while an edit runs
    };

    // Precondition: setupUi() has run, and this hasn't.
    template <class Controls>
    void usa(const Controls& ui, jet::DataControl& registos, Grid* grelha, Regras regras)
    {
        registos_ = &registos, grelha_ = grelha, regras_ = std::move(regras);
        txtCod_ = ui.txtCod, txtNome_ = ui.txtNome, txtObs_ = ui.txtObs;
        usaComandos(ui);
        ligaControlos();
    }

    virtual jet::NativeSql fonte() const = 0; // the source of the rows
    // Whether another row has that name. Kept: in most editors an unchanged name is one, and the name stands in the
    // statement as it was typed, so that a quote breaks it.
    virtual bool nomeRepetido(const QString& nome, Passo passo) const = 0;
    // The boxes hold what may be stored; tells the user why not.
    virtual bool VerificaCampos(Passo passo);
    virtual QString codigoNovo() { return {}; } // proposed at the start of an insertion
    virtual QString codigoAGravar() const;
    virtual QString superior() const { return {}; } // the code of the level above
    virtual QString nomeAGravar() const;
    // Throws an error that tells who uses a row that is to be deleted, if it can't be deleted therefore.
    virtual void exigeQueNinguemUse(const QString&) const {}
    // Deletes what hangs on a row, before the row itself.
    virtual std::optional<jet::NativeSql> eliminacaoDosDescendentes(const QString&) const { return {}; }
    virtual const QList<ModeRow>& modos() const;
    virtual QWidget* primeiroCampo() const; // gets the focus when an insertion starts
    // The fields of one editor alone.
    virtual void limpaOutros() {}
    virtual void mostraOutros(const jet::Recordset&) {}
    virtual void escreveOutros(jet::Recordset&) const {}

    virtual void carrega(); // what belongs to the load; an error ends it
    void Form_Load() final;
    bool Form_QueryUnload(UnloadMode modo) override; // while an edit runs the close box does nothing
    void abreInsercao() override;
    void confirmaInsercao() override;
    bool podeAlterar() override;
    void abreAlteracao() override;
    void confirmaAlteracao() override;
    void elimina() override;
    void fecha() override { conceal(); }
    void terminaEdicao() override;
    void mostraLinha() override;

    // Puts the cursor on the row chosen in the grid. False where there is none.
    bool posiciona();
    const DadosDoNivel& nivel() const { return dadosDe(regras_.nivel); }
    QString valor(const QString& campo) const; // of the current row
    static bool existe(const QString& select) { return !jet::Recordset(cnBDP, select).eof(); }
    void AplicarModo(Modo modo);
    // Fills the grid and shows the row with that code; empty: the first one.
    void mostraRegistos(const QString& codigo = {});
    // Refuses what stands in the box, which gets the text instead.
    bool recusaComTexto(const QString& mensagem, TextBox* campo, const QString& texto = {});

    jet::DataControl* registos_ = nullptr;
    Grid* grelha_ = nullptr;
    Regras regras_;
    TextBox *txtCod_ = nullptr, *txtNome_ = nullptr;
    MemoBox* txtObs_ = nullptr;

private:
    void ligaControlos();
    void grelha_Click();
    void txtNome_Edited(const QString& texto);
    void preencheGrelha();
    void limpaCampos();
    void escreveCampos();

    RegistoVisto vista_; // the row shown
};
