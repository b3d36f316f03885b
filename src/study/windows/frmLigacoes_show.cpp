// The candidates are shown, and the two of one beside each other.
#include "study/windows/frmLigacoes.h"

#include "common/modGeral.h"
#include "platform/forms/statusline.h"
#include "study/linkage/verdicts.h"
#include "study/windows/cards.h"
#include "study/windows/sideBySide.h"

#include <algorithm>
#include <iterator>
#include <utility>

using namespace study;
using linkage::Link;
using linkage::LinkKind;
using linkage::Record;

namespace {

std::vector<parish::RecordLine> sheetOf(const parish::Snapshot& parish, const Record& record)
{
    if (!record.isGiven()) return {};
    if (record.isPerson()) {
        const auto* person = parish.person(parish::PersonNumber(record.number));
        return person ? parish::record(parish, *person) : std::vector<parish::RecordLine>{};
    }
    const auto* family = parish.family(parish::FamilyNumber(record.number));
    return family ? parish::record(parish, *family) : std::vector<parish::RecordLine>{};
}

// Of a person and a family each sheet stands for itself.
parish::ComparedLines sheetsOf(const parish::Snapshot& parish, const Link& link)
{
    using enum parish::ComparedLine::Mark;
    const auto one = sheetOf(parish, link.one), other = sheetOf(parish, link.other);
    if (link.one.kind == link.other.kind || !link.other.isGiven()) return parish::compared(one, other);
    parish::ComparedLines lines;
    lines.reserve(one.size() + other.size());
    for (const parish::RecordLine& row : one)
        lines.push_back({row.title, row.value, {}, OnlyOne});
    for (const parish::RecordLine& row : other)
        lines.push_back({row.title, {}, row.value, OnlyOther});
    return lines;
}

struct Captions
{
    const char *same, *notTheSame;
};

Captions captionsOf(LinkKind kind)
{
    if (kind == LinkKind::NamedCouple) return {"São &estes os pais", "&Não são estes"};
    if (kind == LinkKind::Doubtful) return {"&Está certo", "&Não é o mesmo"};
    if (kind == LinkKind::SameFamily) return {"É a m&esma", "&Não é a mesma"};
    return {"É o m&esmo", "&Não é o mesmo"};
}

} // namespace

void FrmLigacoes::lists_Click()
{
    guarded([&] { showLines(); });
}

LinkList::Shown FrmLigacoes::shown() const
{
    using enum LinkList::Shown;
    return cmbFiltro->listIndex() == 1 ? All : cmbFiltro->listIndex() == 2 ? Later : Suggested;
}

// The list stays on the candidate that was looked at, wherever that stands by now, so that no key falls on another one.
void FrmLigacoes::showLines()
{
    const int kind = cmbTipo->listIndex() - 1;
    const auto before = chosen();
    int row = dtgCasos->row();
    lines_ = list_.ofKind(kind < 0 ? std::nullopt : std::optional(linkKinds.at(size_t(kind))), shown());
    const auto isTheSame = [&](const LinkList::Line& line) {
        return before && line.link.kind == before->link.kind && line.link.one == before->link.one &&
               line.link.other == before->link.other;
    };
    if (const auto there = std::ranges::find_if(lines_, isTheSame); there != lines_.end())
        row = int(there - lines_.begin()) + 1;
    fillLines();
    if (!lines_.empty()) dtgCasos->setRow(std::clamp(row, 1, int(lines_.size())));
    showLine();
}

void FrmLigacoes::fillLines()
{
    const int count = int(lines_.size());
    const bool bare = dtgCasos->rows() == 0; // otherwise the widths are the user's
    dtgCasos->setRows(count == 0 ? 0 : count + 1);
    const auto suggested = std::ranges::count(list_.lines(), true, &LinkList::Line::suggested);
    lblCasos->setText(
        "&Quem pode ser o mesmo, o mais provável primeiro" +
        (parish_ ? QString(" (%1 de %2 propostos)").arg(suggested).arg(list_.lines().size()) : QString()));
    if (count == 0) return;
    static constexpr int caseWidth = 50, bitsWidth = 56, kindWidth = 165, oneWidth = 225, otherWidth = 340;
    if (bare)
        dtgCasos->setColumns({{"Caso", caseWidth},
                              {"Bits", bitsWidth},
                              {"O que é", kindWidth},
                              {"Um", oneWidth},
                              {"Outro", otherWidth},
                              {"Proposto"}});
    dtgCasos->fill(count + 1, [this](int each) -> QStringList {
        if (each < 1 || each > int(lines_.size())) return {};
        return cellsOf(*parish_, lines_[size_t(each - 1)]);
    });
}

std::optional<LinkList::Line> FrmLigacoes::chosen() const
{
    const int row = dtgCasos->row();
    if (row < 1 || row > int(lines_.size())) return {};
    return lines_[size_t(row - 1)];
}

void FrmLigacoes::cmdSeguinte_Click()
{
    guarded([&] {
        if (dtgCasos->row() >= int(lines_.size())) return showStatus("É o último da lista.");
        dtgCasos->setRow(dtgCasos->row() + 1);
        showLine();
    });
}

void FrmLigacoes::showLine()
{
    const auto line = chosen();
    QString one, other;
    if (line) {
        one = labelOf(*parish_, line->link.one);
        other = labelOf(*parish_, line->link.other);
    }
    showSideBySide(*dtgFichas, line ? sheetsOf(*parish_, line->link) : parish::ComparedLines(), one, other);
    showEvidence(line ? line->link.evidence : std::vector<linkage::Evidence>());
    lblSegundo->setText(line ? runnerUpIn(*parish_, line->link) : QString());
    offerCommands();
}

void FrmLigacoes::showEvidence(const std::vector<linkage::Evidence>& evidence)
{
    const int count = int(evidence.size());
    dtgProvas->setRows(count == 0 ? 0 : count + 1);
    if (count == 0) return;
    static constexpr int fieldWidth = 110, valueWidth = 90;
    dtgProvas->setColumns({{"O que prova", fieldWidth}, {"Um", valueWidth}, {"Outro", valueWidth}, {"Bits"}});
    dtgProvas->fill(count + 1, [evidence](int row) -> QStringList {
        return row < 1 || row > int(evidence.size()) ? QStringList{} : cellsOf(evidence[size_t(row - 1)]);
    });
}

// Nothing is decided while a search is under way.
void FrmLigacoes::offerCommands()
{
    const auto line = chosen();
    const bool free = line && !atWork_;
    const LinkKind kind = line ? line->link.kind : LinkKind::SamePerson;
    const bool isLater = shown() == LinkList::Shown::Later;
    cmdMesmo->setText(captionsOf(kind).same);
    cmdDistinto->setText(captionsOf(kind).notTheSame);
    cmdDepois->setText(isLater ? "&Deixar de adiar" : "&Depois");
    cmdMesmo->setEnabled(free);
    cmdJuntar->setEnabled(free && canMerge(line->link));
    cmdDistinto->setEnabled(free && linkage::canTellApart(line->link));
    cmdDepois->setEnabled(free);
    cmdSeguinte->setEnabled(line.has_value());
    cmdFicha1->setEnabled(line.has_value());
    cmdFicha2->setEnabled(line && line->link.other.isGiven());
    cmdVoltar->setEnabled(!atWork_ && std::ranges::any_of(decisions_, &linkage::Decision::stands));
}

// Beside what was found: the work done, and whether the BDP is another one by now.
void FrmLigacoes::showState()
{
    if (!atWork_) {
        const QString outdated = watch_ && watch_->hasChanged() ? " A BDP mudou desde a procura." : QString();
        lblEstado->setText(state_ + outdated + (otherWeights_ ? " Os pesos mudaram desde a procura." : ""));
    }
    lblFeito->setText("Decididos: " + QString::number(std::ranges::count_if(decisions_, &linkage::Decision::stands)));
    offerCommands();
}

void FrmLigacoes::cmdFicha_Click(bool ofOne)
{
    guarded([&] {
        const auto line = chosen();
        if (!line) return;
        const Record record = ofOne ? line->link.one : line->link.other;
        if (record.isGiven()) showOnCard(record.isPerson() ? "frmInd" : "frmFam", record.number);
    });
}
