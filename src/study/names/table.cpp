#include "platform/desktop/desktop.h"
#include "study/names/fold.h"
#include "study/names/names.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QStandardPaths>
#include <QStringDecoder>

#include <algorithm>
#include <mutex>
#include <optional>
#include <utility>

namespace study {

struct NameTable::Private
{
    using Readings = QHash<QString, QList<Reading>>;

    Readings written; // by the form as it stands there, in small letters
    Readings plain;   // by fold::plain()
    Readings keys;    // the standards, by nameKey()
    QStringList problems;
    QByteArray version;

    void read(const QString& path);
    QString take(const QString& line); // "" or why it can't be read
    static void add(Readings& to, const QString& form, const Reading& reading);
};

namespace {

constexpr auto heading = "forma;padrao;classe;tipo;fonte";
constexpr int columns = 5;
constexpr qsizetype longestForm = 60;
constexpr qint64 largestFile = 16'000'000;

// A raised letter is one behind a full stop: "Sª", "S.ª", "M^el".
QString asWritten(const QString& word)
{
    QString written = word.normalized(QString::NormalizationForm_C).toLower().simplified();
    written.replace(u'º', QLatin1String(".o")).replace(u'ª', QLatin1String(".a")).replace(u'^', u'.');
    return written.replace(QLatin1String(".."), QLatin1String("."));
}

using Kind = std::pair<NameKind, bool>; // and whether it is devotional

std::optional<Kind> kindOf(const QString& word)
{
    static const QHash<QString, Kind> kinds{{"nome", {NameKind::Given, false}},
                                            {"apelido", {NameKind::Surname, false}},
                                            {"ambos", {NameKind::Any, false}},
                                            {"devocao", {NameKind::Any, true}}};
    const auto found = kinds.constFind(word.trimmed().toLower());
    if (found == kinds.cend()) return {};
    return *found;
}

} // namespace

// Two lines of the same standard are one reading: it serves as either kind.
void NameTable::Private::add(Readings& to, const QString& form, const Reading& reading)
{
    QList<Reading>& readings = to[form];
    for (Reading& known : readings) {
        if (known.standard != reading.standard || known.klass != reading.klass) continue;
        if (known.kind != reading.kind) known.kind = NameKind::Any;
        known.devotional = known.devotional || reading.devotional;
        return;
    }
    readings << reading;
}

QString NameTable::Private::take(const QString& line)
{
    const QStringList cells = line.split(u';');
    if (cells.size() != columns) return QString("tem %1 colunas em vez de %2").arg(cells.size()).arg(columns);
    const QString form = cells[0].simplified(), standard = cells[1].simplified(), klass = cells[2].simplified();
    if (fold::plain(form).isEmpty()) return "não tem forma";
    if (nameKey(standard).isEmpty()) return "não tem padrão";
    if (std::max(form.size(), std::max(standard.size(), klass.size())) > longestForm) return "é longa de mais";
    const auto kind = kindOf(cells[3]);
    if (!kind) return QString("o tipo \"%1\" não existe: é nome, apelido, ambos ou devocao").arg(cells[3].left(20));
    const Reading reading{standard, nameKey(klass).isEmpty() ? standard : klass, kind->first, kind->second};
    add(written, asWritten(form), reading);
    add(written, asWritten(standard), reading);
    add(plain, fold::plain(form).simplified(), reading);
    add(plain, fold::plain(standard).simplified(), reading);
    if (!standard.contains(u' ')) add(keys, nameKey(standard), reading);
    return {};
}

void NameTable::Private::read(const QString& path)
{
    const QString name = QFileInfo(path).fileName();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() > largestFile) {
        problems << QString("O ficheiro \"%1\" não pode ser lido.").arg(path);
        return;
    }
    const QByteArray bytes = file.readAll();
    version = QCryptographicHash::hash(version + bytes, QCryptographicHash::Sha1);
    int number = 0;
    for (const QByteArray& line : bytes.split('\n')) {
        ++number;
        QStringDecoder decoder(QStringDecoder::Utf8, QStringConverter::Flag::Stateless);
        const QString text = QString(decoder(line)).trimmed();
        if (text.isEmpty() || (number == 1 && text.compare(heading, Qt::CaseInsensitive) == 0)) continue;
        const QString why = decoder.hasError() ? QString("não está em UTF-8") : take(text);
        if (!why.isEmpty()) problems << QString("%1, linha %2: %3.").arg(name).arg(number).arg(why);
    }
}

NameTable NameTable::load(const QString& shipped, const QString& own)
{
    auto read = std::make_shared<Private>();
    read->read(shipped);
    if (!own.isEmpty() && QFileInfo::exists(own)) read->read(own);
    read->version = read->version.toHex();
    NameTable table;
    table.d_ = std::move(read);
    return table;
}

const NameTable& NameTable::shared()
{
    static NameTable table;
    static QString from;
    static std::mutex loading; // what works on a thread of its own asks, too
    const std::lock_guard lock(loading);
    const QString shipped = Desktop::programFolder() + "/nomes.csv";
    if (from == shipped) return table;
    table = load(shipped, QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation) + "/nomes.csv");
    from = shipped;
    return table;
}

QList<Reading> NameTable::readings(const QString& word) const
{
    if (!d_) return {};
    if (const auto found = d_->written.constFind(asWritten(word)); found != d_->written.cend()) return *found;
    const QString plain = fold::plain(word).simplified();
    if (plain.isEmpty()) return {};
    if (const auto found = d_->plain.constFind(plain); found != d_->plain.cend()) return *found;
    return plain.contains(u' ') ? QList<Reading>() : d_->keys.value(nameKey(word));
}

QStringList NameTable::problems() const
{
    return d_ ? d_->problems : QStringList();
}

QByteArray NameTable::version() const
{
    return d_ ? d_->version : QByteArray();
}

} // namespace study
