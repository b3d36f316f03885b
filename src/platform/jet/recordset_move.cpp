#include "platform/jet/recordset.h"

#include "platform/jet/errors.h"
#include "platform/jet/recordset_p.h"

namespace jet {

// What was set and not written goes with the movement.
void Recordset::Private::moveTo(int newPosition)
{
    dropPending();
    position = newPosition;
    onDeleted = false;
    rowRead = false;
}

bool Recordset::bof() const
{
    d->requireOpen();
    return d->count() == 0 || d->position < 0;
}

bool Recordset::eof() const
{
    d->requireOpen();
    return d->count() == 0 || (d->position >= d->count() && !d->onDeleted);
}

int Recordset::recordCount() const
{
    d->requireOpen();
    return d->count();
}

int Recordset::absolutePosition() const
{
    d->requireOpen();
    return d->hasCurrentRow() ? d->position + 1 : 0;
}

void Recordset::setAbsolutePosition(int position)
{
    d->requireOpen();
    d->readTo(position - 1);
    if (position < 1 || position > d->count())
        throw Error{number::invalidPosition, QStringLiteral("O registo número %1 não existe.").arg(position)};
    d->moveTo(position - 1);
}

void Recordset::moveFirst()
{
    d->requireOpen();
    if (d->count() == 0) throw noCurrentRow();
    d->moveTo(0);
}

void Recordset::moveLast()
{
    d->requireOpen();
    d->readRest();
    if (d->count() == 0) throw noCurrentRow();
    d->moveTo(d->count() - 1);
}

void Recordset::moveNext()
{
    d->requireOpen();
    d->readTo(d->position + 1);
    if (d->onDeleted) // the row that followed has taken the place of the deleted one
        return d->moveTo(d->position);
    if (eof()) throw noCurrentRow();
    d->moveTo(d->position + 1);
}

void Recordset::movePrevious()
{
    d->requireOpen();
    d->readTo(d->position - 1);
    if (bof() && !d->onDeleted) throw noCurrentRow();
    d->moveTo(d->position - 1);
}

DataControl::DataControl(Connection& connection) : rows_(connection) {}

void DataControl::setRecordSource(const QString& select)
{
    source_ = select;
}

void DataControl::setRecordSource(const NativeSql& select)
{
    source_ = select;
}

void DataControl::refresh()
{
    const QString* dialect = std::get_if<QString>(&source_);
    if (dialect && dialect->isEmpty()) return rows_.close();
    std::visit([this](const auto& select) { rows_.open(select); }, source_);
}

Recordset& DataControl::recordset()
{
    return rows_;
}

bool DataControl::hasRows() const
{
    return rows_.isOpen() && rows_.recordCount() > 0;
}

} // namespace jet
