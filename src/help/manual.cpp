#include "help/manual.h"

#include "help/folded.h"
#include "help/messageEntry.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace help {

namespace {

Kind kindOf(const QString& name)
{
    if (name == "capitulo") return Kind::Chapter;
    if (name == "janela") return Kind::Window;
    if (name == "comando") return Kind::Command;
    if (name == "mensagem") return Kind::Message;
    return Kind::Section;
}

Entry entryOf(const QJsonObject& row)
{
    Entry entry;
    entry.id = row["id"].toString();
    entry.title = row["titulo"].toString();
    entry.kind = kindOf(row["tipo"].toString());
    entry.file = row["ficheiro"].toString();
    entry.anchor = row["ancora"].toString();
    entry.page = row["pagina"].toInt();
    entry.words = foldedLine(entry.title + ' ' + row["texto"].toString());
    return entry;
}

bool holdsAll(const QString& line, const QStringList& words)
{
    return std::all_of(words.begin(), words.end(), [&](const QString& word) { return line.contains(' ' + word); });
}

} // namespace

Manual::Manual(const QString& folder) : folder_(folder)
{
    QFile index(folder + "/indice.json");
    if (!index.open(QIODevice::ReadOnly)) return;
    for (const QJsonValue row : QJsonDocument::fromJson(index.readAll()).array())
        if (const Entry entry = entryOf(row.toObject()); !entry.file.isEmpty()) entries_ << entry;
}

const Entry* Manual::find(const QString& id) const
{
    const auto found = std::find_if(entries_.begin(), entries_.end(), [&](const Entry& entry) { return entry.id == id; });
    return found == entries_.end() ? nullptr : &*found;
}

const Entry* Manual::at(const QUrl& page) const
{
    const QString file = QDir(folder_).relativeFilePath(page.toLocalFile());
    const Entry* first = nullptr;
    for (const Entry& entry : entries_) {
        if (entry.file != file) continue;
        if (page.hasFragment() && entry.anchor == page.fragment(QUrl::FullyDecoded)) return &entry;
        if (!first) first = &entry;
    }
    return first;
}

QUrl Manual::url(const Entry& entry) const
{
    QUrl page = QUrl::fromLocalFile(QDir(folder_).absoluteFilePath(entry.file));
    if (!entry.anchor.isEmpty()) page.setFragment(entry.anchor);
    return page;
}

const Entry* Manual::explaining(const QString& message) const
{
    QList<MessageEntry> messages;
    for (const Entry& entry : entries_)
        if (entry.kind == Kind::Message) messages << MessageEntry{entry.id, entry.title};
    const QString id = messageEntry(message, messages);
    return id.isEmpty() ? nullptr : find(id);
}

QList<const Entry*> Manual::search(const QString& sought) const
{
    const QStringList words = folded(sought).split(' ', Qt::SkipEmptyParts);
    QList<const Entry*> found, byText;
    if (words.isEmpty()) return found;
    const Entry* message = explaining(sought);
    if (message) found << message;
    for (const Entry& entry : entries_) {
        if (&entry == message) continue;
        if (holdsAll(foldedLine(entry.title), words))
            found << &entry;
        else if (holdsAll(entry.words, words))
            byText << &entry;
    }
    return found + byText;
}

} // namespace help
