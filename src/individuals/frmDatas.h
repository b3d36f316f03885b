// The date criterion of a search, for the card of a person and the card of a family.
#pragma once

#include "platform/forms/controls.h"
#include "platform/forms/form.h"

#include "ui_frmDatas.h"

#include <QPointer>
#include <QString>

#include <optional>

// What frmDatas says: one date or, if that is empty, an interval. The texts are as the fields hold them, dates or not.
struct CriterioDeDatas
{
    int data = -1; // index of the option that is on, disabled or not; -1 if none is
    QString fixa;  // empty: the interval counts
    QString inicio, fim;
};

// The card that shows it is disabled until it is accepted or unloaded.
class FrmDatas : public Form, private Ui::FrmDatas
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmDatas";

    FrmDatas();

    // Whose dates are searched for. A family offers only the marriage and the first child.
    enum class Procura
    {
        Individuo,
        Familia
    };
    // Brings it up for a card, which is disabled. Where the last search was of the other kind, the first date offered
    // is chosen.
    void mostraPara(Form& cartao, Procura procura);
    CriterioDeDatas criterio() const;

protected:
    void Form_Load() override;
    void Form_Unload() override;
    void keyPressEvent(QKeyEvent* event) override; // Return is cmdOk, Escape cmdC

private:
    void optTData_Click(int indice);
    void cmdOk_Click();
    void cmdC_Click();
    void largaCartao(); // enables it again

    QPointer<Form> cartao_; // whose search it serves
    bool espera_ = false;   // whether that card waits, disabled
    Procura procura_ = Procura::Individuo;
};

// The one form, loaded at first touch.
FrmDatas& frmDatas();

// Where frmDatas has to be in the order of the loaded forms to be read.
enum class Onde
{
    UltimaFicha, // the last one
    QualquerFicha
};

// Reads a frmDatas that was left loaded, and unloads it, so that it is used once. Nothing if there is none.
std::optional<CriterioDeDatas> recolheDatas(Onde onde);
