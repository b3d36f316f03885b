#include "platform/forms/entryindex.h"

#include "platform/forms/controls.h"

#include <QAbstractItemModel>

EntryIndex& EntryIndex::of(ComboBox& list, Key key)
{
    for (QObject* child : list.children())
        if (auto* index = dynamic_cast<EntryIndex*>(child)) return *index;
    return *new EntryIndex(list, key);
}

EntryIndex::EntryIndex(ComboBox& list, Key key) : QObject(&list), list_(list), key_(key)
{
    const QAbstractItemModel* entries = list.model();
    connect(entries, &QAbstractItemModel::rowsInserted, this, [this](const QModelIndex&, int first) {
        if (first < read_) forget();
    });
    connect(entries, &QAbstractItemModel::rowsRemoved, this, &EntryIndex::forget);
    connect(entries, &QAbstractItemModel::rowsMoved, this, &EntryIndex::forget);
    connect(entries, &QAbstractItemModel::modelReset, this, &EntryIndex::forget);
    connect(entries, &QAbstractItemModel::dataChanged, this, [this](const QModelIndex& first) {
        if (first.row() < read_) forget();
    });
}

void EntryIndex::forget()
{
    firsts_.clear();
    read_ = 0;
}

int EntryIndex::first(const QString& key)
{
    for (; read_ < list_.count(); ++read_) {
        const QString found = key_(list_.list(read_));
        if (!firsts_.contains(found)) firsts_.insert(found, read_);
    }
    return firsts_.value(key, -1);
}
