// Types of people and families that disagree with what is known of them, and their repair.
#pragma once

#include "platform/forms/controls.h"
#include "platform/forms/form.h"
#include "store/session.h"
#include "study/checks/types.h"
#include "study/windows/parishWatch.h"

#include "ui_frmTipos.h"

#include <utility>
#include <vector>

// Lists the differences of this moment, by kinds of them; none is chosen at first. Those chosen are written in one
// step, which can be taken back here; what was altered meanwhile is left alone and told. The list is read anew where
// the window comes to the front and somebody has written since; what is chosen stays chosen where the difference still
// stands. Nothing is written while a card edits or searches.
class FrmTipos : public Form, private Ui::FrmTipos
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmTipos";

    FrmTipos();

protected:
    void Form_Load() override;

private:
    struct Line
    {
        study::checks::TypeDifference difference;
        bool chosen = false;
    };
    // Of people or families, from one type to another.
    struct Kind
    {
        bool isFamily = false;
        QString stored = {}, byDates = {};
        bool operator==(const Kind&) const = default;
        bool operator<(const Kind& other) const;
    };
    static Kind kindOf(const Line& line);

    void cmdTrocar_Click();
    void cmdGravar_Click();
    void cmdDesfazer_Click();

    void keepUpToDate();
    void read(); // throws jet::Error
    void fillKinds();
    void fillGrid();
    void offerCommands();
    void chooseShown(bool chosen);
    void writeChosen();
    QString described(const Kind& kind, const QString& code) const;

    std::vector<Line> all_;
    std::vector<Kind> kinds_;
    std::vector<size_t> seen_; // of all_, in the order of the grid
    study::parish::Catalogue catalogue_;
    qint64 last_ = 0; // the decision that can be taken back
    bool wasInFront_ = false;
    study::ParishWatch watch_{cnBDP, {"estudo_decisao"}}; // since the list was read
};
