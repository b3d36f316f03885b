// The weights as lines, and what is typed for one.
#include "study/windows/frmPesos.h"

#include "platform/forms/focus.h"
#include "platform/forms/msgbox.h"
#include "study/checks/settings.h"
#include "study/windows/linkList.h"

#include <QSignalBlocker>

#include <algorithm>
#include <array>
#include <cmath>
#include <tuple>

using namespace study;
using linkage::Model;
using linkage::Weight;

namespace {

struct Limit
{
    const char* title;
    double Model::*value; // null: how many candidates
};
constexpr std::array limits{Limit{"Propor pessoas, a partir de (bits)", &Model::suggestFrom},
                            Limit{"Propor famílias, a partir de (bits)", &Model::suggestCouplesFrom},
                            Limit{"Propor, acima do segundo (bits)", &Model::aboveRunnerUp},
                            Limit{"Esconder, abaixo de (bits)", &Model::hideBelow},
                            Limit{"Candidatos por registo e tipo, até", nullptr}};
constexpr double mostBits = 1000, mostCandidates = 100;

double valueOf(const Model& model, const Limit& limit)
{
    return limit.value ? model.*limit.value : model.candidates;
}

void setValue(Model& model, const Limit& limit, double value)
{
    if (limit.value)
        model.*limit.value = value;
    else
        model.candidates = int(value);
}

// "0,95", "0,00005".
QString shownNumber(double value)
{
    static constexpr int decimals = 6;
    QString text = QString::number(value, 'f', decimals);
    while (text.endsWith('0'))
        text.chop(1);
    if (text.endsWith('.')) text.chop(1);
    return text.replace('.', ',');
}

QString titleOf(linkage::Field field)
{
    return title(field) + (field == linkage::Field::OtherNamesOfWoman ? " de mulher" : "");
}

} // namespace

void FrmPesos::fillGrid()
{
    lines_.clear();
    lines_.reserve(draft_.weights.size() + limits.size());
    for (size_t i = 0; i < limits.size(); ++i)
        lines_.push_back({.limit = i});
    for (size_t i = 0; i < draft_.weights.size(); ++i)
        lines_.push_back({.weight = i});
    const int count = int(lines_.size()), row = dtgPesos->row();
    const bool bare = dtgPesos->rows() == 0;
    const QSignalBlocker quiet(dtgPesos->selectionModel());
    dtgPesos->setRows(count + 1);
    if (bare) dtgPesos->setColumns({{"O que se compara", 230}, {"Como concorda", 120}, {"m", 90}, {"u", 90}, {"Bits"}});
    dtgPesos->fill(count + 1, [this](int each) -> QStringList {
        return each < 1 || each > int(lines_.size()) ? QStringList{} : cellsOf(lines_[size_t(each) - 1]);
    });
    dtgPesos->setRow(std::clamp(row, 1, count));
    dtgPesos->viewport()->update();
}

QStringList FrmPesos::cellsOf(const Line& line) const
{
    if (!line.weight) return {limits[line.limit].title, {}, shownNumber(valueOf(draft_, limits[line.limit]))};
    const Weight& weight = draft_.weights[*line.weight];
    return {titleOf(weight.field), title(weight.level), shownNumber(weight.m), shownNumber(weight.u),
            shownBits(weight.bits()) + (weight.byValue ? " em média" : "")};
}

void FrmPesos::showValues()
{
    shown_ = dtgPesos->row();
    const Line line = shown_ < 1 || shown_ > int(lines_.size()) ? Line() : lines_[size_t(shown_) - 1];
    const QStringList cells = cellsOf(line);
    static constexpr int ofM = 2, ofU = 3;
    lblM->setText(line.weight ? "m (&1):" : "Valor (&1):");
    txtM->setText(cells.value(ofM));
    txtU->setText(cells.value(ofU));
    lblU->setVisible(line.weight.has_value());
    txtU->setVisible(line.weight.has_value());
    showState();
}

bool FrmPesos::isTyped() const
{
    if (shown_ < 1 || shown_ > int(lines_.size())) return false;
    const QStringList cells = cellsOf(lines_[size_t(shown_) - 1]);
    return txtM->text() != cells.value(2) || txtU->text() != cells.value(3);
}

void FrmPesos::refuse(TextBox* box, const QString& text)
{
    showMessage(text);
    Focus::setTo(box);
}

// A value whose text wasn't touched stays as it is to the last digit.
bool FrmPesos::takeTyped()
{
    if (!isTyped()) return true;
    const Line line = lines_[size_t(shown_) - 1];
    const QStringList cells = cellsOf(line);
    const auto typed = [](const TextBox* box) { return checks::numberFrom(box->text()); };
    if (line.weight) {
        Weight weight = draft_.weights[*line.weight];
        for (const auto& [box, before, value] :
             {std::tuple(txtM, cells.value(2), &weight.m), std::tuple(txtU, cells.value(3), &weight.u)})
        {
            if (box->text() == before) continue;
            const auto number = typed(box);
            if (!number || *number <= 0 || *number > 1) {
                refuse(box, "Deve inserir uma probabilidade: um número maior que 0, até 1!");
                return false;
            }
            *value = *number;
        }
        draft_.weights[*line.weight] = weight;
    } else {
        const Limit& limit = limits[line.limit];
        const auto number = typed(txtM);
        const bool fits =
            number && (limit.value ? *number <= mostBits
                                   : *number >= 1 && *number <= mostCandidates && *number == std::floor(*number));
        if (!fits) {
            refuse(txtM, limit.value ? "Deve inserir um número de bits, de 0 a 1000!"
                                     : "Deve inserir um número inteiro de 1 a 100!");
            return false;
        }
        setValue(draft_, limit, *number);
    }
    origin_ = "Foram alterados à mão.";
    fillGrid();
    return true;
}
