// What the columns of a table hold.
#include "study/windows/frmTranscricoes.h"

#include "common/modGeral.h"
#include "store/session.h"

#include <QSignalBlocker>

#include <algorithm>
#include <array>

using namespace study;

namespace {

constexpr std::array kinds{ActKind::Baptism, ActKind::Marriage, ActKind::Burial}; // behind the first entry

int rowOf(const QString& id)
{
    const auto found = std::ranges::find(tableFields(), id, &TableField::id);
    return found == tableFields().end() ? 0 : static_cast<int>(found - tableFields().begin()) + 1;
}

} // namespace

void FrmTranscricoes::fillChoices()
{
    for (const QString entry : {"(di-lo uma coluna)", "Baptismos", "Casamentos", "Óbitos"})
        cmbEspecie->add(entry);
    cmbCampo->add("(não importar)");
    for (const TableField& field : tableFields())
        cmbCampo->add(field.title);
}

// What was told of these headers in this window or before, or else what they say themselves.
void FrmTranscricoes::proposeColumns(const QStringList& headers)
{
    if (headers.isEmpty() || columns_.contains(headers)) return;
    const std::optional<Assignment> kept = keptAssignment(cnBDP, headers);
    columns_[headers] = {.assignment = kept ? *kept : proposed(headers)};
}

FrmTranscricoes::Columns* FrmTranscricoes::chosenColumns()
{
    const File* file = chosenFile();
    if (!file || !file->sheet) return nullptr;
    const auto found = columns_.find(file->sheet->headers);
    return found == columns_.end() ? nullptr : &*found;
}

void FrmTranscricoes::showColumns()
{
    const Columns* columns = chosenColumns();
    fraColunas->setVisible(columns != nullptr);
    if (!columns) return;
    const int count = static_cast<int>(chosenFile()->sheet->headers.size());
    dtgCol->setRows(count + 1);
    dtgCol->setColumns({{"Coluna", 120}, {"Primeiros valores", 150}, {"Tem"}});
    showAssignment(*columns);
    dtgCol->setRow(1);
    dtgCol_Click();
}

void FrmTranscricoes::showAssignment(const Columns& columns)
{
    const int row = dtgCol->row();
    const Assignment& assignment = columns.assignment;
    dtgCol->fill(dtgCol->rows(), [this](int each) { return cellsOfColumn(each); });
    dtgCol->setRow(row);
    const QSignalBlocker quiet(cmbEspecie);
    const auto kind = assignment.kind ? std::ranges::find(kinds, *assignment.kind) : kinds.end();
    cmbEspecie->setListIndex(kind == kinds.end() ? 0 : static_cast<int>(kind - kinds.begin()) + 1);
    if (txtLivro->text() != assignment.book) txtLivro->setText(assignment.book);
    lblFalta->setText(whyNotAssigned(chosenFile()->sheet->headers, assignment));
}

QStringList FrmTranscricoes::cellsOfColumn(int row) const
{
    const File* file = chosenFile();
    if (!file || !file->sheet || row < 1 || row > file->sheet->headers.size()) return {};
    const QStringList taken = columns_.value(file->sheet->headers).assignment.columns;
    return {file->sheet->headers[row - 1], previewOf(*file->sheet, row - 1), titleOfField(taken.value(row - 1))};
}

void FrmTranscricoes::dtgCol_Click()
{
    const Columns* columns = chosenColumns();
    if (!columns || dtgCol->row() < 1) return;
    const QSignalBlocker quiet(cmbCampo);
    cmbCampo->setListIndex(rowOf(columns->assignment.columns.value(dtgCol->row() - 1)));
}

void FrmTranscricoes::cmbCampo_Click()
{
    guarded([&] {
        Columns* columns = chosenColumns();
        const int column = dtgCol->row() - 1;
        if (!columns || column < 0 || column >= columns->assignment.columns.size()) return;
        const int field = cmbCampo->listIndex() - 1;
        columns->assignment.columns[column] = field < 0 ? QString() : tableFields().value(field).id;
        altered(*columns);
    });
}

void FrmTranscricoes::cmbEspecie_Click()
{
    guarded([&] {
        Columns* columns = chosenColumns();
        if (!columns) return;
        const int kind = cmbEspecie->listIndex() - 1;
        columns->assignment.kind = kind < 0 ? std::nullopt : std::optional(kinds.at(size_t(kind)));
        altered(*columns);
    });
}

void FrmTranscricoes::txtLivro_Change()
{
    guarded([&] {
        Columns* columns = chosenColumns();
        if (!columns) return;
        columns->assignment.book = txtLivro->text();
        altered(*columns);
    });
}

void FrmTranscricoes::altered(Columns& columns)
{
    columns.altered = true;
    showAssignment(columns);
}

void FrmTranscricoes::keepAlteredColumns()
{
    for (auto each = columns_.begin(); each != columns_.end(); ++each) {
        if (!each->altered) continue;
        keepAssignment(cnBDP, each.key(), each->assignment);
        each->altered = false;
    }
}

void FrmTranscricoes::keepColumnsOf(const File& file)
{
    Columns& columns = columns_[file.sheet->headers];
    keepAssignment(cnBDP, file.sheet->headers, columns.assignment);
    columns.altered = false;
}
