#include "verdict.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>
#include <csignal>
#include <iterator>

namespace {

constexpr const char* companions[] = {"-journal", "-wal", "-shm"};
constexpr int sanitizerExit = 99;

QString withoutQuoted(QString text)
{
    static const QRegularExpression quoted("\"[^\"]*\"|'[^']*'|/\\S+|\\((trigger|view)\\)");
    return text.remove(quoted);
}

// How many rows of `then` aren't there any more; both are in order.
qsizetype lost(const QList<QByteArray>& then, const QList<QByteArray>& now)
{
    QList<QByteArray> gone;
    std::set_difference(then.begin(), then.end(), now.begin(), now.end(), std::back_inserter(gone));
    return gone.size();
}

// A log with nothing in it, which the engine takes away when it closes the file.
QStringList emptyLog(const FolderState& files)
{
    static const QByteArray nothing = QCryptographicHash::hash({}, QCryptographicHash::Sha1);
    const QString name = "bdp.orv-wal";
    return files.value(name).endsWith(nothing) ? QStringList(name) : QStringList();
}

QString brokenOff(const Look& look, const Ending& ending)
{
    const QString at = " at \"" + look.step + '"';
    const bool late = ending.code == SIGPROF || ending.code == SIGALRM;
    if (ending.status == QProcess::CrashExit && late)
        return QStringLiteral("more than %1 seconds").arg(ending.seconds) + at;
    if (ending.status == QProcess::CrashExit) return QStringLiteral("ended by signal %1").arg(ending.code) + at;
    if (ending.code == sanitizerExit) return "a report of a sanitizer" + at;
    if (!look.failure.isEmpty()) return look.failure + at;
    if (!look.over) return "not to its end" + at;
    if (ending.code != 0) return QStringLiteral("ended with status %1").arg(ending.code) + at;
    return {};
}

QString wrongBox(const State& state)
{
    for (const Box& box : state.boxes) {
        const QString text = box.title + ": " + box.text;
        if (const QString word = foreignWord(text); !word.isEmpty()) return "\"" + word + "\" in a box: " + text;
        if (withoutQuoted(text).contains(voiceOfTheFile))
            return "the file speaks with the voice of the program: " + text;
    }
    static const QRegularExpression harmless("\\.(png|jpe?g|gif|bmp|tiff?|pdf|txt|rtf|docx?|odt)$",
                                             QRegularExpression::CaseInsensitiveOption);
    for (const QString& document : state.opened)
        if (!harmless.match(document).hasMatch()) return "handed to the desktop: " + document;
    return {};
}

} // namespace

Before::Before(const Site& site, const QString& folder)
    : files(folderState(site.folder())), copy_(folder + "/antes.orv"), belongs_(site.belongs)
{
    if (!QFileInfo(site.bdp()).isFile()) return;
    QFile::copy(site.bdp(), copy_);
    if (!belongs_) return;
    for (const char* suffix : companions)
        QFile::copy(site.beside(suffix), copy_ + QLatin1String(suffix));
}

QString Before::lostRows(const Site& site, int mayChange) const
{
    if (!QFileInfo::exists(copy_)) return {};
    const Dump then = Raw(copy_, belongs_ ? Raw::Way::Write : Raw::Way::Untouched).dump();
    const Dump now = Raw(site.bdp(), Raw::Way::Untouched).dump(then);
    for (auto it = then.begin(); it != then.end(); ++it) {
        if (!now.contains(it.key())) return "the table " + it.key() + " can't be read any more";
        if (lost(it->rows, now[it.key()].rows) > mayChange || (mayChange == 0 && now[it.key()].rows != it->rows))
            return QStringLiteral("rows of %1 have changed: %2 then, %3 now")
                .arg(it.key())
                .arg(it->rows.size())
                .arg(now[it.key()].rows.size());
    }
    return {};
}

QString verdict(const Site& site, const Before& before, const Look& look, const State& state, const Ending& ending,
                int mayChange)
{
    if (const QString reason = brokenOff(look, ending); !reason.isEmpty()) return reason;
    if (const QString reason = wrongBox(state); !reason.isEmpty()) return reason;
    const FolderState now = folderState(site.folder());
    if (!look.opened) {
        const QString change = difference(before.files, now, emptyLog(before.files));
        return change.isEmpty() ? QString() : "refused, and " + change;
    }
    // The name of the file, and of what stands for it beside it.
    QStringList own{"bdp.orv", "verdadeira.orv"};
    if (mayChange > 0) own << "copia.orv"; // the backup of the work
    for (const char* suffix : companions)
        own << own[0] + QLatin1String(suffix) << own[1] + QLatin1String(suffix);
    for (const QString& name : now.keys()) // an upgrade of its schema is a first write
        if (name == "copias" || name.startsWith("copias/")) own << name;
    if (const QString change = difference(before.files, now, own); !change.isEmpty()) return "opened, and " + change;
    if (mayChange == anyNumber) return {};
    if (now.value("bdp.orv") == before.files.value("bdp.orv") && !site.belongs)
        return mayChange > 0 ? "worked in, and nothing is stored" : "";
    const QString lost = before.lostRows(site, mayChange);
    return lost.isEmpty() ? QString() : (mayChange > 0 ? "worked in, and " : "only looked at, and ") + lost;
}

QString unmet(Wanted wanted, const Look& look, const State& state)
{
    if (wanted == Wanted::Anything) return {};
    if (wanted == Wanted::Refused) return look.opened ? QString("it is opened") : QString();
    if (!look.opened) return "it is refused";
    for (const Box& box : state.boxes)
        if (wanted == Wanted::Calm && box.text.startsWith("Ocorreu o erro")) return "an error comes up: " + box.text;
    return {};
}

QString foreignWord(const QString& text)
{
    static const QSet<QString> foreign{
        "abort",      "aborted", "access",   "already",     "and",        "argument",    "authorized", "bad",
        "cancel",     "cannot",  "column",   "commit",      "constraint", "corrupt",     "could",      "database",
        "datatype",   "denied",  "disk",     "does",        "encoding",   "error",       "exist",      "expected",
        "extension",  "failed",  "file",     "found",       "full",       "function",    "generated",  "image",
        "incomplete", "index",   "input",    "interrupted", "invalid",    "is",          "large",      "locked",
        "malformed",  "memory",  "mismatch", "missing",     "module",     "near",        "not",        "open",
        "overflow",   "parser",  "query",    "read",        "readonly",   "row",         "schema",     "string",
        "such",       "syntax",  "table",    "the",         "too",        "transaction", "trigger",    "unable",
        "unexpected", "unknown", "unsafe",   "unsupported", "view",       "write",       "yes"};
    static const QRegularExpression word("[A-Za-zÀ-ÿ]+");
    const QString bare = withoutQuoted(text);
    for (auto it = word.globalMatch(bare); it.hasNext();) {
        const QString found = it.next().captured().toLower();
        if (foreign.contains(found)) return found;
    }
    return {};
}
