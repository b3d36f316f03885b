// Who stands behind the numbers of the window of indicators, and why somebody doesn't.
#include "study/windows/frmIndicadores.h"

#include "platform/forms/focus.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/statusline.h"
#include "study/windows/cards.h"
#include "study/windows/recordSheet.h"
#include "study/windows/subjectRecords.h"

#include <utility>

using namespace study;
using indicators::Study;
using indicators::Subject;
using indicators::Who;

namespace {

constexpr auto hint = "Enter, ou um clique num número, mostra quem está por trás.";

} // namespace

// The latest number asked for is answered; one before that waits no longer.
void FrmIndicadores::openCell(const report::Table* table, const QModelIndex& index)
{
    const report::Cell* cell = table ? cellAt(*table, index) : nullptr;
    if (!cell || !sheetOf_) return;
    const QString what = toldOf(*table, index);
    if (cell->from.empty()) {
        clearBehind();
        lblQuem->setText(what + ". Por trás disto não há registos que se possam mostrar.");
        return;
    }
    auto found = std::make_shared<std::vector<Who>>();
    question_ = {
        [found, cells = cell->from](const Subject& subject, const Study& study, const Background::GoesOn& goesOn) {
            *found = indicators::behind(subject, study, cells, goesOn);
        },
        [this, found, what] {
            behind_ = std::move(*found);
            showBehind(what);
        }};
    stopped_ = false;
    goOn();
}

void FrmIndicadores::showBehind(const QString& what)
{
    const int records = static_cast<int>(behind_.size());
    dtgQuem->setRows(records == 0 ? 0 : records + 1);
    if (records > 0) {
        dtgQuem->setColumns({{"Indivíduo", 330}, {"Família"}});
        dtgQuem->fill(records + 1, [this](int row) { return cellsOf(behind_.at(static_cast<std::size_t>(row) - 1)); });
        dtgQuem->setRow(1);
    }
    dtgQuem->viewport()->update();
    lblQuem->setText(what + " – " + countedRecords(behind_.size()) + '.');
    showStatus(lblQuem->text());
    offerCommands();
}

void FrmIndicadores::clearBehind()
{
    dtgQuem->setRows(0);
    behind_.clear();
    lblQuem->setText(hint);
    offerCommands();
}

const Who* FrmIndicadores::chosenRecord() const
{
    const int row = dtgQuem->row();
    return row < 1 || row > static_cast<int>(behind_.size()) ? nullptr : &behind_[static_cast<std::size_t>(row) - 1];
}

// Of a person and a family, the person; the other button leads to the family.
void FrmIndicadores::cmdFicha_Click()
{
    const Who* who = chosenRecord();
    if (!who) return;
    if (who->person) return showOnCard("frmInd", parish::value(who->person->number));
    if (who->family) showOnCard("frmFam", parish::value(who->family->number));
}

void FrmIndicadores::cmdFamilia_Click()
{
    if (const Who* who = chosenRecord(); who && who->family) showOnCard("frmFam", parish::value(who->family->number));
}

void FrmIndicadores::cmdPorque_Click()
{
    if (!sheetOf_) return;
    bool isNumber = false;
    const qint64 number = txtNumero->text().trimmed().toLongLong(&isNumber);
    if (!isNumber || number < 1) {
        showMessage("Deve inserir o número de um indivíduo ou de uma família!");
        return Focus::setTo(txtNumero);
    }
    const bool isFamily = cmbRegisto->listIndex() == 0;
    const auto* family = isFamily ? base_->parish->family(parish::FamilyNumber(number)) : nullptr;
    const auto* person = isFamily ? nullptr : base_->parish->person(parish::PersonNumber(number));
    if (!family && !person) {
        txtResposta->setText(QString("Não há %1 com o número %2.").arg(isFamily ? "família" : "indivíduo").arg(number));
        return;
    }
    auto text = std::make_shared<QString>();
    question_ = {[text, family, person](const Subject& subject, const Study& study, const Background::GoesOn& goesOn) {
                     *text = family ? told(verdictOn(subject, study, *family, goesOn), titleOf(*family)) + "\r\n" +
                                          observed(study, *family)
                                    : told(verdictOn(subject, study, *person, goesOn), titleOf(*person)) + "\r\n" +
                                          observed(study, *person);
                 },
                 [this, text] { txtResposta->setText(*text); }};
    stopped_ = false;
    goOn();
}
