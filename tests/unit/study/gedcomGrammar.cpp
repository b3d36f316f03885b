#include "study/gedcomGrammar.h"

#include "study/gedcomStructures.h"

#include <QDate>
#include <QHash>
#include <QRegularExpression>

namespace gedcom {

namespace {

constexpr int longestLine = 255; // of 5.5.1, in bytes, with its end

struct Rule
{
    int least = 0;
    int most = 0; // 0: any number
    QString payload = {};
    QString below = {};
};
using Rules = QHash<QString, QHash<QByteArray, QList<Rule>>>; // context, tag; one tag may be a pointer or a text

Rules rulesOf(const char* text)
{
    Rules rules;
    QHash<QString, QStringList> groups;
    QString context;
    const auto lines = QString::fromUtf8(text).split(u'\n', Qt::SkipEmptyParts);
    for (const QString& line : lines) {
        if (!line.startsWith(u' ')) {
            context = line.trimmed();
            rules[context]; // there, even where nothing may stand below it
            continue;
        }
        const QStringList words = line.simplified().split(u' ');
        if (words.first().startsWith(u'+')) {
            const auto group = rules.value(words.first().mid(1));
            for (auto one = group.begin(); one != group.end(); ++one)
                rules[context][one.key()] << one.value();
            continue;
        }
        const QStringList times = words[1].split(u':');
        const Rule rule{times[0].toInt(), times[1] == "M" ? 0 : times[1].toInt(), words[2], words.value(3)};
        const auto tags = words[0].split(u',');
        for (const QString& tag : tags)
            rules[context][tag.toLatin1()] << rule;
    }
    return rules;
}

const QString& dateWords()
{
    static const QString date = "(?:(?:(?:[1-9]|[12]\\d|3[01]) )?(?:JAN|FEB|MAR|APR|MAY|JUN|JUL|AUG|SEP|OCT|NOV|DEC) )?"
                                "[1-9]\\d*";
    return date;
}

// Each day that is told is one of its month, of the proleptic Gregorian calendar.
bool hasRealDays(const QString& text)
{
    static const QRegularExpression day("(\\d+) ([A-Z]{3}) (\\d+)");
    static const QStringList months = {"JAN", "FEB", "MAR", "APR", "MAY", "JUN",
                                       "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"};
    for (auto each = day.globalMatch(text); each.hasNext();) {
        const auto one = each.next();
        const auto month = static_cast<int>(months.indexOf(one.captured(2))) + 1;
        if (month > 0 && !QDate::isValid(one.captured(3).toInt(), month, one.captured(1).toInt())) return false;
    }
    return true;
}

bool isPeriod(const QString& text)
{
    const QString& day = dateWords();
    static const QRegularExpression form("^(?:FROM " + day + "(?: TO " + day + ")?|TO " + day + ")$");
    return form.match(text).hasMatch() && hasRealDays(text);
}

bool isDate(const QString& text)
{
    const QString& day = dateWords();
    static const QRegularExpression form("^(?:" + day + "|(?:ABT|CAL|EST|BEF|AFT) " + day + "|BET " + day + " AND " +
                                         day + "|FROM " + day + "(?: TO " + day + ")?|TO " + day + ")$");
    return form.match(text).hasMatch() && hasRealDays(text);
}

bool matches(const QString& text, const char* pattern)
{
    static QHash<const char*, QRegularExpression> made;
    QRegularExpression& form = made[pattern];
    if (form.pattern().isEmpty()) form.setPattern(QString("^(?:%1)$").arg(pattern));
    return form.match(text).hasMatch();
}

// Whether the payload of a structure is of the type that a rule tells: "text", "text/90", "enum:A,B", "@INDI", ...
bool fits(const Structure& one, const QString& payload)
{
    const QString type = payload.section(u'/', 0, 0);
    const QString longest = payload.section(u'/', 1);
    if (type.startsWith(u'@')) return !one.pointer.isEmpty();
    if (!one.pointer.isEmpty()) return false;
    if (!longest.isEmpty() && (one.value.size() > longest.toInt() || one.value.isEmpty())) return false;
    if (type == "-") return one.value.isEmpty();
    if (type == "Y") return one.value.isEmpty() || one.value == "Y";
    if (type == "memo") return true;
    if (one.value.contains(u'\n')) return false;
    if (type == "text") return true;
    if (type == "int") return matches(one.value, "\\d+");
    if (type == "date") return isDate(one.value);
    if (type == "period") return isPeriod(one.value);
    if (type == "exact") return matches(one.value, "\\d+ [A-Z]{3} \\d+") && isDate(one.value);
    if (type == "lang") return matches(one.value, "[A-Za-z]{2,3}(?:-[A-Za-z0-9]{2,8})*");
    if (type == "age") return matches(one.value, "(?:[<>] ?)?\\d+y(?: \\d+m)?(?: \\d+d)?");
    if (type == "name") return matches(one.value, "[^/]*(?:/[^/]*/[^/]*)?") && !one.value.trimmed().isEmpty();
    if (type == "places") return one.value.count(u',') == 5;
    if (type == "uid") return matches(one.value, "[0-9a-f]{8}(?:-[0-9a-f]{4}){3}-[0-9a-f]{12}");
    if (type == "uri") return matches(one.value, "[A-Za-z0-9._~:/?#\\[\\]@!$&'()*+,;=%-]+");
    if (type == "media") return matches(one.value, "[a-z]+/[a-z0-9.+-]+");
    if (type.startsWith("enum:")) return type.mid(5).split(u',').contains(one.value);
    return false;
}

class Checker
{
public:
    Checker(const File& file, bool is551)
        : file_(file), is551_(is551), rules_(rulesOf(is551 ? structures551 : structures70))
    {
    }

    QStringList problems()
    {
        for (const Structure& record : file_.records)
            tagOf_.insert(record.xref, record.tag);
        if (file_.records.isEmpty() || file_.records.first().tag != "HEAD" || file_.records.last().tag != "TRLR")
            problems_ << "linha 1: não vai de HEAD a TRLR";
        for (const char* const once : {"HEAD", "TRLR"})
            if (file_.all(once).size() > 1) problems_ << QString("%1 está duas vezes").arg(once);
        for (const Structure& record : file_.records) {
            if (!isRecord(record.tag)) tell(record, "não é um registo");
            checkHead(record);
            checkBelow(record, record.tag);
        }
        for (const Structure& record : file_.records)
            checkLinks(record);
        return problems_;
    }

private:
    void tell(const Structure& at, const QString& what)
    {
        problems_ << QString("linha %1: %2 %3: %4").arg(at.line).arg(QString(at.tag), at.value.left(40), what);
    }

    bool isRecord(const QByteArray& tag) const
    {
        static const QList<QByteArray> both = {"HEAD", "FAM", "INDI", "OBJE", "REPO", "SOUR", "SUBM", "TRLR"};
        return both.contains(tag) || tag == (is551_ ? "NOTE" : "SNOTE");
    }

    // The line of a record: a number where others can lead to it, and a text of a note alone.
    void checkHead(const Structure& record)
    {
        const bool isEnd = record.tag == "HEAD" || record.tag == "TRLR";
        const bool isNote = record.tag == (is551_ ? "NOTE" : "SNOTE");
        if (isEnd != record.xref.isEmpty()) tell(record, isEnd ? "tem um número" : "não tem número");
        if (record.xref == "@VOID@") tell(record, "não se pode chamar assim");
        if (!isNote && !(record.value.isEmpty() && record.pointer.isEmpty())) tell(record, "tem um valor");
    }

    void checkBelow(const Structure& above, const QString& context)
    {
        const auto allowed = rules_.value(context);
        QHash<QByteArray, int> times;
        for (const Structure& one : above.below) {
            if (one.tag.startsWith('_') && !is551_) {
                tell(one, "não está no esquema");
                continue;
            }
            if (!one.xref.isEmpty()) tell(one, "só um registo tem um número");
            if (!is551_ && one.value == "OTHER" && !one.first("PHRASE")) tell(one, "falta PHRASE");
            ++times[one.tag];
            const Rule* rule = nullptr;
            const QList<Rule> possible = allowed.value(one.tag);
            for (const Rule& each : possible)
                if (fits(one, each.payload)) rule = &each;
            if (!allowed.contains(one.tag))
                tell(one, "não pode estar debaixo de " + context);
            else if (!rule)
                tell(one, "o valor não é de " + allowed.value(one.tag).first().payload);
            else {
                if (!one.pointer.isEmpty()) checkPointer(one, rule->payload);
                checkBelow(one, rule->below);
            }
        }
        for (auto rule = allowed.begin(); rule != allowed.end(); ++rule) {
            const int count = times.value(rule.key());
            const Rule& first = rule.value().first();
            if (count < first.least) tell(above, "falta " + rule.key());
            if (first.most != 0 && count > first.most) tell(above, "demasiados " + rule.key());
        }
    }

    void checkPointer(const Structure& one, const QString& payload)
    {
        if (one.pointer == "@VOID@" && !is551_) return;
        if (tagOf_.value(one.pointer) != payload.mid(1).toLatin1()) tell(one, "não leva a " + payload);
    }

    // Who is in a family has it, and the other way round.
    void checkLinks(const Structure& record)
    {
        const auto leadsBack = [&](const Structure& link, std::initializer_list<const char*> back) {
            const Structure* const other = file_.record(link.pointer);
            if (!other) return false;
            for (const char* const tag : back)
                for (const Structure& each : other->all(tag))
                    if (each.pointer == record.xref) return true;
            return false;
        };
        for (const Structure& link : record.below) {
            bool isMutual = true;
            if (link.tag == "FAMC") isMutual = leadsBack(link, {"CHIL"});
            if (link.tag == "FAMS") isMutual = leadsBack(link, {"HUSB", "WIFE"});
            if (link.tag == "CHIL") isMutual = leadsBack(link, {"FAMC"});
            if ((link.tag == "HUSB" || link.tag == "WIFE") && record.tag == "FAM") isMutual = leadsBack(link, {"FAMS"});
            if (!isMutual) tell(link, "não é recíproco");
        }
    }

    const File& file_;
    bool is551_;
    Rules rules_;
    QHash<QByteArray, QByteArray> tagOf_ = {};
    QStringList problems_ = {};
};

// A file as its lines, with what is wrong with each.
class LineReader
{
public:
    LineReader(File& file, bool is551) : file_(file), is551_(is551) {}

    void read(QByteArray bytes)
    {
        if (bytes.startsWith("\xEF\xBB\xBF")) bytes.remove(0, 3);
        if (!bytes.endsWith('\n')) tell(1, "a última linha não acaba");
        bytes.chop(1);
        int number = 0;
        for (const QByteArray& line : bytes.split('\n'))
            take(line, ++number);
    }

private:
    void tell(int number, const QString& what) { file_.problems << QString("linha %1: %2").arg(number).arg(what); }

    void take(const QByteArray& line, int number)
    {
        static const QRegularExpression form("^(0|[1-9]\\d*)(?: (@[A-Z0-9_]+@))? ([A-Z_][A-Z0-9_]*)(?: (.+))?$");
        const QString text = QString::fromUtf8(line);
        const auto found = form.match(text);
        if (is551_ && line.size() + 1 > longestLine) tell(number, "é longa demais");
        if (!found.hasMatch()) return tell(number, "não é uma linha: " + text.left(60));
        for (const QChar letter : text)
            if (letter < u' ' && (is551_ || letter != u'\t')) tell(number, "tem uma letra que não pode ter");
        const int level = found.captured(1).toInt();
        if (level > path_.size()) return tell(number, "salta níveis");
        put(level, found.captured(2).toLatin1(), found.captured(3).toLatin1(), found.captured(4), number);
    }

    void put(int level, const QByteArray& xref, const QByteArray& tag, const QString& value, int number)
    {
        path_.resize(level);
        QList<Structure>& into = level == 0 ? file_.records : place(level).below;
        Structure one{.xref = xref, .tag = tag, .line = number};
        static const QRegularExpression pointer("^@[A-Z0-9_]+@$");
        if (pointer.match(value).hasMatch())
            one.pointer = value.toLatin1();
        else
            one.value = unescaped(value, number);
        if (tag == "CONT" || tag == "CONC") {
            if (tag == "CONC" && !is551_) tell(number, "CONC não é da versão 7");
            if (!xref.isEmpty()) tell(number, "só um registo tem um número");
            Structure& above = place(level);
            above.value += (tag == "CONT" ? "\n" : "") + one.value;
            if (!above.pointer.isEmpty()) tell(number, "continua um apontador");
            if (tag == "CONC" && (one.value.isEmpty() || one.value.front() == u' ')) tell(number, "começa num espaço");
            return;
        }
        if (tag == "CONC" && !is551_) tell(number, "CONC");
        path_ << static_cast<int>(into.size());
        into << one;
    }

    Structure& place(int level)
    {
        Structure* at = &file_.records[path_[0]];
        for (int i = 1; i < level; ++i)
            at = &at->below[path_[i]];
        return *at;
    }

    QString unescaped(QString value, int number)
    {
        if (!is551_) {
            if (value.startsWith(u'@') && !value.startsWith("@@")) tell(number, "um @ por dobrar");
            return value.startsWith("@@") ? value.mid(1) : value;
        }
        QString whole = value;
        if (whole.remove("@@").contains(u'@')) tell(number, "um @ por dobrar");
        return value.replace("@@", "@");
    }

    File& file_;
    bool is551_;
    QList<int> path_ = {};
};

} // namespace

const Structure* Structure::first(const char* sought) const
{
    for (const Structure& one : below)
        if (one.tag == sought) return &one;
    return nullptr;
}

QList<Structure> Structure::all(const char* sought) const
{
    QList<Structure> found;
    for (const Structure& one : below)
        if (one.tag == sought) found << one;
    return found;
}

QString Structure::text(const char* sought) const
{
    const Structure* const one = first(sought);
    return one ? one->value : QString();
}

QList<Structure> File::all(const char* tag) const
{
    QList<Structure> found;
    for (const Structure& one : records)
        if (one.tag == tag) found << one;
    return found;
}

const Structure* File::record(const QByteArray& xref) const
{
    const auto found = places.constFind(xref);
    return found == places.constEnd() ? nullptr : &records[*found];
}

File read(const QByteArray& bytes, bool is551)
{
    File file;
    LineReader(file, is551).read(bytes);
    for (qsizetype i = 0; i < file.records.size(); ++i) {
        const QByteArray& xref = file.records[i].xref;
        if (!xref.isEmpty() && file.places.contains(xref))
            file.problems << QString("linha %1: %2 está duas vezes").arg(file.records[i].line).arg(QString(xref));
        file.places.insert(xref, i);
    }
    return file;
}

QStringList problemsOf(const File& file, bool is551)
{
    return file.problems + Checker(file, is551).problems();
}

} // namespace gedcom
