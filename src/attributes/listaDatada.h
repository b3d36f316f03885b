// The rows that hang on a person or a family, in a window of their own: a grid of all, fields that show the one chosen,
// and commands that add, alter and delete.
#pragma once

#include "common/campos.h"
#include "common/dataAoEntrar.h"
#include "common/dono.h"
#include "common/instrucao.h"
#include "common/numeros.h"
#include "common/passo.h"
#include "common/registoVisto.h"
#include "common/text.h"
#include "platform/forms/controls.h"
#include "platform/forms/modes.h"
#include "platform/jet/recordset.h"
#include "store/session.h"

#include <QList>
#include <QString>
#include <QVariant>

#include <utility>

// The base keeps the protocol: what each click means (the step says it), what is shown after it, and which commands
// are open. A window gives its rows, columns, checks and modes, and its differences as Regras. What else is shut during
// an edit is in its table of modes.
class ListaDatada : public JanelaDoDono
{
    Q_OBJECT

public:
    // The key of the row chosen last, as column 0 of the grid shows it; empty: none.
    QString Chave;

    void AplicarModo(Modo modo);
    virtual void LimpaCampos() = 0;
    // Fills the grid, which keeps its row. The cursor is left after the last row.
    void PreencheFG();
    // Shows the row of Chave; without a Chave the row at the cursor, or the last one if the cursor is past it. The
    // grid's current row follows. If the row is gone from the store, the fields are cleared.
    void ActualizaCampos();

protected:
    struct Botoes
    {
        CommandButton *ins, *alt, *elim, *sair;
    };

    struct Regras
    {
        QString procura; // the criterion by which a key finds its row, up to the key
        QWidget* focoAoInserir = nullptr;
        QWidget* focoAoAlterar = nullptr; // null: it stays where it is
        QString pergunta = "Tem a certeza que deseja eliminar este registo?";
        bool perguntaPrimeiro = false;     // a deletion asks before it looks at EmPesquisa
        bool limpaAoMostrar = true;        // the fields are cleared before a row is shown
        bool preencheAoMostrar = false;    // the rows are read and the grid is filled whenever a row is shown
        bool preencheAoCancelar = false;   // the grid is filled when an addition is cancelled
        bool fechaSemLinhas = false;       // an empty grid shuts the commands that alter and delete
        bool releAoAlterar = true;         // the rows are read again after an alteration, so that they are in order
        bool eliminarVaiAPrimeira = false; // a deletion shows the first row, and not a neighbour
        bool guardaUltimaNaGrelha = false; // the only row left stays on the grid when it is deleted
    };

    using Valores = Colunas;

    using JanelaDoDono::JanelaDoDono;

    // Once, after setupUi().
    void usa(const Botoes& botoes, Grid* grelha, QList<GridColumn> colunas, Regras regras);
    // The date field is checked when it is left; a date sets the flag beside it, an empty field clears it, and in an
    // alteration a date left as it was entered leaves it alone. The command whose click took the focus still runs: it
    // stores nothing without a date.
    void vigiaData(MaskedEdit* campo, QCheckBox* fixa = nullptr);
    // The number field takes 0 and more; that of a column of whole numbers takes no fraction. A refusal empties the
    // field, and the command whose click took the focus doesn't run: it would store the empty field.
    void vigiaNumero(TextBox* campo, const QString& recusa);
    void vigiaInteiro(TextBox* campo, const QString& recusa);
    // For a column of whole numbers whose field has no check of its own: a number that the column can't take is refused
    // and stays. The confirmation refuses it too, as it does a text that is no number.
    static void vigiaFraccao(TextBox* campo, const QString& motivo);

    // For Form_Load(): the rows, the grid and mode "Cons". No row is shown yet.
    void abreLista(const QString& instrucao);
    void mostraPrimeira();

    virtual jet::DataControl& registos() = 0;
    virtual const QList<ModeRow>& modos() const = 0;
    // The cells of the row.
    virtual QStringList PreencheLinha(const jet::Recordset& linha) const = 0;
    // Shows the columns of the row in the fields.
    virtual void mostraLinha(const jet::Recordset& linha) = 0;
    // What else the first click of an alteration does.
    virtual void preparaAlteracao() {}
    // Whether the fields may be stored at the end of an insertion or an alteration; tells the user why not.
    virtual bool VerificaCampos(Passo) { return true; }
    // Stores the fields as a new row. Returns the key of the row to show, empty for the one that was chosen before.
    virtual QString acrescenta() = 0;
    // Stores the fields in the current row. Returns the key of the row to show, empty for the grid's current one.
    virtual QString altera() = 0;
    virtual void elimina() { registos().recordset().deleteRow(); }
    // Chave as a criterion takes it.
    virtual QString chaveNoCriterio() const { return chaveEmSQL(Chave); }

    bool emRepouso() const { return comandos_.passo() == Passo::Repouso; }
    bool podeMudarDeDono() const override { return emRepouso(); }
    bool Form_QueryUnload(UnloadMode modo) override; // while an edit runs the close box does nothing
    void volta() override;

    // Collected first and written in one go, so that a refused value leaves nothing pending.
    void acrescentaLinha(const Valores& valores); // nulls are left out
    void alteraLinha(const Valores& valores);
    // The number after the highest one of this list.
    QString proximoNumero(const QString& coluna);

    // Writes the value into the field, unless it is blank.
    template <class Campo>
    static void mostraSeHouver(Campo* campo, const QVariant& valor)
    {
        if (const QString texto = textoDaQuantidade(valor); !Trim(texto).isEmpty()) campo->setText(texto);
    }

private:
    void cmdIns_Click();
    void cmdAlt_Click();
    void cmdElim_Click();
    void cmdSair_Click();
    void grelha_Click();

    void iniciaInsercao();
    void confirmaInsercao();
    void cancelaInsercao();
    void terminaInsercao();
    void iniciaAlteracao();
    void confirmaAlteracao();
    void cancelaAlteracao();
    void terminaAlteracao();
    void eliminaRegisto();

    bool temLinhas() const { return grelha_->rows() > 0; }
    void mostraGuardada();
    bool linhaPerdida();
    QString chaveVizinha();

    Botoes cmd_{};
    Comandos comandos_;
    Grid* grelha_ = nullptr;
    QList<GridColumn> colunas_;
    Regras regras_;
    DataAoEntrar dataAntiga_;
    RegistoVisto vista_; // the row shown
};
