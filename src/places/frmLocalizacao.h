// The place picker: how a place enters any card, and how the working list is kept.
#pragma once

#include "platform/forms/controls.h"
#include "platform/forms/form.h"
#include "platform/jet/nativesql.h"

#include "ui_frmLocalizacao.h"

#include <QSet>
#include <QString>

// A card that wants a place sets OrigemLoc, disables itself and shows this form. The place comes back in the card's own
// combo, and the card is enabled again when this form is unloaded.
// The place editors and the place search read and set the seven combos.
class FrmLocalizacao : public Form, public Ui::FrmLocalizacao
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmLocalizacao";

    // The levels, from the widest to the narrowest.
    enum Nivel
    {
        Pais,
        Zona,
        Distrito,
        Concelho,
        Paroquia,
        Lugar,
        Sitio,
        NumNiveis
    };

    FrmLocalizacao();

    // The code of the place chosen in a level, from the numbers of its combos.
    QString codigoAte(Nivel nivel) const;
    // The editor of the places below `superior` is closing: their list is read again, and gets the focus where it has
    // places.
    void retomaDoEditor(Nivel superior);

    void setVisible(bool visible) override;

protected:
    void Form_Load() override;
    bool Form_QueryUnload(UnloadMode modo) override;
    void Form_Unload() override;

private:
    // The combos, each filling the next
    void cmbPais_Click();
    void cmbZona_Click();
    void cmbDistrito_Click();
    void cmbConcelho_Click();
    void cmbParoquia_Click();
    void cmbLugar_Click();
    void cmbS_Click();
    bool desceAte(Nivel nivel);
    void preenche(Nivel nivel, const jet::NativeSql& instrucao);
    void preenchePaises();
    void escolheParoquiaDaBDP();
    void LocalEscolhido();

    // The working list
    void preencheLista();
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
    void abreEditor(const QString& editor, const QString& titulo, const ComboBox* superior);

    struct DadosDoNivel;
    static const DadosDoNivel niveis[NumNiveis];

    QString LocalNome; // the place now chosen on the combos
    QString LocalTipo; // its letter
    QString LocalCod;
    QSet<QString> chamadores; // the forms that wait for the unload, by name
};

FrmLocalizacao& frmLocalizacao();
