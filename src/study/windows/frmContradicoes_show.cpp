// The lists of the window of contradictions: rules, cases, decades, records.
#include "study/windows/frmContradicoes.h"

#include "common/modGeral.h"
#include "platform/desktop/desktop.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/statusline.h"
#include "platform/jet/draft.h"
#include "study/checks/rule.h"
#include "study/windows/actList.h"
#include "study/windows/recordSheet.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QSignalBlocker>

#include <algorithm>
#include <functional>
#include <system_error>
#include <utility>

using namespace study;
using checks::Case;
using checks::Seen;
using checks::Severity;

namespace {

std::optional<Severity> severityOf(int entry)
{
    switch (entry) {
    case 1:
        return Severity::Impossible;
    case 2:
        return Severity::Unlikely;
    case 3:
        return Severity::Information;
    default:
        return {};
    }
}

// Of one that the last check hasn't found.
Case caseOf(const Seen& seen)
{
    const checks::Rule* rule = checks::ruleOf(seen.rule);
    return {.rule = seen.rule, .severity = rule ? rule->severity : Severity::Information, .text = seen.text};
}

// The file takes its name when it is whole. Throws jet::Error.
void writeWhole(const QString& path, const QByteArray& bytes)
{
    const bool over = QFileInfo::exists(path);
    jet::Draft draft(path);
    {
        QFile file(draft.path());
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush())
            throw jet::writeError(std::make_error_code(std::errc::no_space_on_device), path);
    }
    over ? draft.replace() : draft.place();
}

// One function of several, by what a record is.
template <class... Functions>
struct Overloaded : Functions...
{
    using Functions::operator()...;
};
template <class... Functions>
Overloaded(Functions...) -> Overloaded<Functions...>; // without it clang doesn't know what it is of

template <class Lines>
std::vector<Case> casesOf(const Lines& lines)
{
    std::vector<Case> cases;
    cases.reserve(lines.size());
    for (const auto& line : lines)
        cases.push_back(line.one);
    return cases;
}

// Fills a grid under a heading; an empty one has none.
void fill(Grid& grid, int count, const QList<GridColumn>& columns, const std::function<QStringList(int row)>& cells)
{
    const bool bare = grid.rows() == 0; // otherwise the widths are the user's
    grid.setRows(count == 0 ? 0 : count + 1);
    if (count == 0) return;
    if (bare) grid.setColumns(columns);
    grid.fill(count + 1, cells);
}

} // namespace

std::vector<FrmContradicoes::Line> FrmContradicoes::allLines() const
{
    std::vector<Line> all;
    if (!showsSeen()) {
        const checks::Aside isAside(seen_);
        for (const Case& one : cases_)
            if (!isAside(one)) all.push_back({one});
        return all;
    }
    QHash<QString, const Case*> found;
    for (const Case& one : cases_)
        found.insert(one.key(), &one);
    all.reserve(seen_.size());
    for (const Seen& seen : seen_) {
        const Case* one = found.value(seen.key);
        all.push_back({one ? *one : caseOf(seen), seen});
    }
    return all;
}

// The rule chosen stays so, where it still has a case.
void FrmContradicoes::showAll()
{
    const int before = dtgRegras->row();
    const QString chosen = before > 1 && before - 2 < int(rules_.size()) ? rules_[size_t(before) - 2].rule : QString();
    const checks::CaseChoice isChosen({severityOf(cmbGravidade->listIndex()), txtTexto->text()});
    filtered_ = allLines();
    std::erase_if(filtered_, [&](const Line& line) { return !isChosen(line.one); });
    const std::vector<Case> cases = casesOf(filtered_);
    rules_ = countsByRule(cases);
    lblTotal->setText(countText(cases));
    {
        const QSignalBlocker quiet(dtgRegras->selectionModel());
        fill(*dtgRegras, rules_.empty() ? 0 : int(rules_.size()) + 1, {{"Regra", 60}, {"Casos", 60}, {"Contradição"}},
             [this](int row) -> QStringList {
                 if (row == 1) return {"Todas", QString::number(filtered_.size()), {}};
                 const checks::RuleCount& count = rules_.at(size_t(row) - 2);
                 return {count.rule, QString::number(count.cases), checks::ruleOf(count.rule)->title};
             });
        const auto same = std::ranges::find(rules_, chosen, &checks::RuleCount::rule);
        if (!rules_.empty()) dtgRegras->setRow(same == rules_.end() ? 1 : int(same - rules_.begin()) + 2);
    }
    dtgRegras->viewport()->update();
    showCases();
}

// The place in the list stays, for who goes through it one by one.
void FrmContradicoes::showCases()
{
    const int row = dtgRegras->row();
    const int before = dtgCasos->row();
    lines_ = filtered_;
    if (row > 1) {
        const QString rule = rules_.at(size_t(row) - 2).rule;
        std::erase_if(lines_, [&](const Line& line) { return line.one.rule != rule; });
    }
    {
        const QSignalBlocker quiet(dtgCasos->selectionModel());
        fill(*dtgCasos, int(lines_.size()), {{"Regra", 50}, {"Gravidade", 85}, {"Caso"}},
             [this](int each) { return cellsOf(lines_.at(size_t(each) - 1)); });
        if (!lines_.empty()) dtgCasos->setRow(std::clamp(before, 1, int(lines_.size())));
    }
    dtgCasos->viewport()->update();
    fillDecades();
    showCase();
}

QStringList FrmContradicoes::cellsOf(const Line& line) const
{
    return {line.one.rule, inWords(line.one.severity), line.seen ? line.seen->text : line.one.text};
}

void FrmContradicoes::fillDecades()
{
    const auto decades = checks::countsByDecade(casesOf(lines_));
    fill(*dtgDecadas, int(decades.size()), {{"Década", 78}, {"Casos", 50}}, [decades](int row) -> QStringList {
        const auto& [year, cases] = decades.at(size_t(row) - 1);
        return {year == 0 ? QString("sem data") : QString::number(year), QString::number(cases)};
    });
}

const FrmContradicoes::Line* FrmContradicoes::chosenLine() const
{
    const int row = dtgCasos->row();
    return row < 1 || row > int(lines_.size()) ? nullptr : &lines_[size_t(row) - 1];
}

void FrmContradicoes::showCase()
{
    const Line* line = chosenLine();
    records_.clear();
    if (line && parish_) {
        for (const auto number : line->one.people)
            if (const auto* person = parish_->person(number)) records_.emplace_back(person);
        for (const auto number : line->one.families)
            if (const auto* family = parish_->family(number)) records_.emplace_back(family);
        for (const qint64 number : line->one.acts) {
            const auto act = readAct(cnBDP, number);
            if (act) records_.emplace_back(StoredAct{number, titleOf(act->act)});
        }
    }
    txtCaso->setText(line ? textOf(*line) : QString());
    const Overloaded title{[](const auto* record) { return titleOf(*record); },
                           [](const StoredAct& act) { return "Acto " + QString::number(act.number); }};
    for (size_t side = 0; side < sides_.size(); ++side) {
        ComboBox& list = *sides_[side].list;
        const QSignalBlocker quiet(&list);
        list.clear();
        for (const Record& record : records_)
            list.add(std::visit(title, record));
        list.setListIndex(side < records_.size() ? int(side) : -1);
        showRecord(side);
    }
    offerCommands();
}

QString FrmContradicoes::textOf(const Line& line)
{
    const checks::Rule* rule = checks::ruleOf(line.one.rule);
    QStringList told{line.seen ? line.seen->text : line.one.text};
    if (rule && *rule->remark) told << QString(rule->title) + ". " + rule->remark;
    if (line.seen) {
        const QDateTime when = QDateTime::fromString(line.seen->when, "yyyy-MM-dd HH:mm:ss");
        told << "Visto em " + (when.isValid() ? when.toString("dd/MM/yyyy HH:mm") : line.seen->when) + ": " +
                    line.seen->reason;
        if (!line.one.state.isEmpty() && line.one.state != line.seen->state)
            told << "Os registos foram alterados depois: o caso volta a ser mostrado.";
    }
    return told.join("\r\n");
}

std::optional<FrmContradicoes::Record> FrmContradicoes::chosenRecord(size_t side) const
{
    const int entry = sides_.at(side).list->listIndex();
    if (entry < 0 || entry >= int(records_.size())) return {};
    return records_[size_t(entry)];
}

void FrmContradicoes::showRecord(size_t side)
{
    const std::optional<Record> record = chosenRecord(side);
    const Overloaded sheet{[this](const auto* shown) { return sheetOf(*shown, parish_->catalogue()); },
                           [](const StoredAct& act) { return act.title; }};
    sides_.at(side).sheet->setText(record ? std::visit(sheet, *record) : QString());
    sides_.at(side).card->setEnabled(record.has_value());
}

void FrmContradicoes::offerCommands()
{
    const Line* line = chosenLine();
    cmdVisto->setEnabled(line && !line->seen);
    cmdRepor->setEnabled(line && line->seen);
    for (CommandButton* list : {cmdImprimir, cmdExportar})
        list->setEnabled(line != nullptr);
}

// "" where the user gives it up.
QString FrmContradicoes::write(const QString& filter, const QString& title, const QByteArray& bytes)
{
    const QString path = saveFileName(filter, title);
    if (path.isEmpty()) return {};
    const QString name = '"' + QFileInfo(path).fileName() + '"';
    if (QFileInfo(path).canonicalFilePath() == QFileInfo(cnBDP.dataSource()).canonicalFilePath() &&
        QFileInfo::exists(path)) {
        showMessage("O ficheiro " + name + " é a própria BDP.");
        return {};
    }
    if (QFileInfo::exists(path) && !ask("O ficheiro " + name + " já existe. Deseja substituí-lo?")) return {};
    const Hourglass hourglass;
    writeWhole(path, bytes);
    showStatus("Lista escrita em " + name + '.');
    return path;
}

void FrmContradicoes::cmdExportar_Click()
{
    guarded([&] { write("Tabela CSV (*.csv)|*.csv", "Exportar a lista", toCsv(casesOf(lines_))); });
}

// A page for the program of the desktop that prints it.
void FrmContradicoes::cmdImprimir_Click()
{
    guarded([&] {
        const QByteArray page = toHtml(casesOf(lines_), QFileInfo(cnBDP.dataSource()).fileName(), when_);
        const QString path = write("Página para imprimir (*.html)|*.html", "Guardar a lista para imprimir", page);
        if (path.isEmpty() || Desktop::openDocument(path) >= Desktop::success) return;
        showMessage("A página foi guardada, mas não se encontrou programa que a abra.");
    });
}
