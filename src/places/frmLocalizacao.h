// The place picker: how a place enters any card, and how the working list is kept.
#pragma once

#include "common/niveis.h"
#include "common/pedidoDeLocal.h"
#include "platform/forms/controls.h"
#include "platform/forms/form.h"
#include "platform/forms/statusline.h"

#include "ui_frmLocalizacao.h"

#include <QList>
#include <QString>

#include <array>

// A form that wants a place asks for it by pedeLocal(), which shows this one; the request in force is served.
class FrmLocalizacao : public Form, private Ui::FrmLocalizacao
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmLocalizacao";

    FrmLocalizacao();

    // The code of the place chosen in a level, as its table has it; "" where none is.
    QString codigoAte(Nivel nivel) const;
    // Chooses a place on the combos, from the top down; `superior` is the code of the place above, which countries and
    // districts have none of. Each choice fills the list of the next, so that one which isn't found ends the walk; so
    // does a list that is shut, as below the parishes where only a parish can be chosen.
    void mostraLocal(Nivel nivel, const QString& codigo, const QString& superior);
    // The editor of the places below `superior` is closing on the row with that code: their list is read again, with
    // that place chosen, and gets the focus where it has places. If the user has only looked, what was chosen before
    // stays. A place that was deleted goes from the working list and from those of the open cards, too.
    void retomaDoEditor(Nivel superior, const QString& codigo, bool soOlhou);

    void setVisible(bool visible) override;

protected:
    void Form_Load() override;
    bool Form_QueryUnload(UnloadMode modo) override;
    void Form_Unload() override;

private:
    ComboBox* lista(Nivel nivel) const { return listas_[size_t(nivel)]; }
    CommandButton* editor(Nivel nivel) const { return editores_[size_t(nivel)]; }

    // The combos, each filling the next
    void lista_Click(Nivel nivel);
    void desceAte(Nivel nivel);
    void preencheAbaixo(Nivel nivel);
    void preenche(Nivel nivel, const jet::NativeSql& instrucao);
    void preenchePaises();
    void escolheParoquiaDaBDP();
    bool escolhePais(const QString& codigo);
    bool escolheAte(Nivel nivel, const QString& codigo, const QString& superior);
    bool escolhe(Nivel nivel, const QString& codigo);
    int indiceDe(Nivel nivel, const QString& codigo) const;
    void LocalEscolhido();

    // The working list
    void preencheLista();
    void releNaLista(Nivel nivel);
    void marcaLocal();
    void cmdGuardar_Click();
    void cmdRem_Click();

    // The cards
    void cmdAtribuir_Click();
    void cmdSair_Click();
    void atribuiLocal();
    bool atribuiParoquia();

    // The editors and the search
    void cmdZ_Click();
    void cmdLug_Click();
    void cmdSit_Click();
    void cmdLoc_Click();
    void abreEditor(const QString& nome, const QString& titulo, Nivel superior);

    std::array<ComboBox*, numNiveis> listas_;
    std::array<QStringList, numNiveis> codigos_;     // of the entries of each list; "" of the blank one
    std::array<CommandButton*, numNiveis> editores_; // each opens with its list; null where a level has none here

    QString LocalNome; // the place now chosen on the combos
    QString LocalTipo; // its letter
    QString LocalCod;
    StatusHint dica_;
    QList<PedidoDeLocal> emEspera; // of the forms that wait for the unload
};

FrmLocalizacao& frmLocalizacao();
