#include "study/command/smam.h"

#include "study/command/command.h"
#include "study/indicators/reading.h"
#include "study/names/fold.h"
#include "study/statistics/celibacy.h"
#include "study/transcripts/table.h"

#include <QRegularExpression>
#include <QTextStream>

#include <algorithm>
#include <cmath>
#include <optional>

namespace study {

namespace {

constexpr std::size_t groups = 8;
constexpr int firstAge = 15, breadth = 5;

using Shares = std::array<std::optional<double>, groups>;

QString groupName(std::size_t group)
{
    const int from = firstAge + breadth * static_cast<int>(group);
    return QString("%1–%2").arg(from).arg(from + breadth - 1);
}

// Of "15–19", "15-19", "15 a 19 anos"; nothing for others.
std::optional<std::size_t> groupOf(const QString& text)
{
    static const QRegularExpression form(R"(^(\d{1,3})\s*(?:-|–|—|a)\s*(\d{1,3})(?:\s+anos)?$)");
    const QRegularExpressionMatch match = form.match(text.trimmed());
    if (!match.hasMatch()) return {};
    const int from = match.captured(1).toInt(), until = match.captured(2).toInt();
    const bool isOfFive = from % breadth == 0 && until == from + breadth - 1;
    const int group = (from - firstAge) / breadth;
    if (!isOfFive || from < firstAge || group >= static_cast<int>(groups)) return {};
    return static_cast<std::size_t>(group);
}

// A decimal comma or point, and "%" behind it.
std::optional<double> numberOf(QString text)
{
    text = text.trimmed();
    if (text.endsWith('%')) text.chop(1);
    bool isNumber = false;
    const double number = text.trimmed().replace(',', '.').toDouble(&isNumber);
    if (!isNumber || !std::isfinite(number)) return {};
    return number;
}

// Digits alone: a point or a comma may be one of thousands, and "1.000" isn't one person.
std::optional<double> countOf(const QString& text)
{
    bool isWhole = false;
    const qint64 number = text.trimmed().toLongLong(&isWhole);
    if (!isWhole || number < 0) return {};
    return static_cast<double>(number);
}

// One file, read.
class Singles
{
public:
    explicit Singles(const CellTable& sheet) : sheet_(sheet), problems_(sheet.problems)
    {
        if (isDamaged() || !findColumns()) return;
        for (int row = 0; row < sheet_.rows.size(); ++row)
            read(row);
        check();
    }

    bool isDamaged() const
    {
        return std::any_of(problems_.begin(), problems_.end(),
                           [](const Problem& one) { return one.severity == Problem::Severity::Error; });
    }
    // Precondition: it isn't damaged.
    std::array<double, groups> shares() const
    {
        std::array<double, groups> all = {};
        for (std::size_t group = 0; group < groups; ++group)
            all[group] = shares_[group].value_or(0);
        return all;
    }

    const QList<Problem>& problems() const { return problems_; }

private:
    void refuse(int line, const QString& why) { problems_ << Problem{line, why, Problem::Severity::Error}; }

    qsizetype columnOf(std::initializer_list<const char*> names) const
    {
        for (qsizetype i = 0; i < sheet_.headers.size(); ++i) {
            const QString header = fold::plain(sheet_.headers[i]).simplified();
            for (const char* name : names)
                if (header == QString(name) || header.startsWith(QString(name) + ' ')) return i;
        }
        return -1;
    }

    bool findColumns()
    {
        group_ = columnOf({"grupo", "idade", "idades"});
        singles_ = columnOf({"solteiros", "solteiras"});
        all_ = columnOf({"todos", "todas", "total"});
        if (group_ < 0) refuse(0, "Falta a coluna \"grupo\", com as idades: 15–19, 20–24, …, 50–54.");
        if (singles_ < 0)
            refuse(0, "Falta a coluna \"solteiros\": em percentagem, ou em número com a coluna \"todos\" ao lado.");
        return group_ >= 0 && singles_ >= 0;
    }

    void read(int row)
    {
        const QStringList& cells = sheet_.rows[row];
        const int line = sheet_.lines[row];
        const std::optional<std::size_t> group = groupOf(cells[group_]);
        if (!group) {
            problems_ << Problem{
                line, QString("\"%1\" não é um dos grupos de 15–19 a 50–54: não entra.").arg(cells[group_].trimmed())};
            return;
        }
        if (shares_[*group]) return refuse(line, QString("O grupo %1 está duas vezes.").arg(groupName(*group)));
        shares_[*group] = all_ < 0 ? ofPercent(cells[singles_], line) : ofCounts(cells[singles_], cells[all_], line);
    }

    double ofPercent(const QString& text, int line)
    {
        const std::optional<double> percent = numberOf(text);
        if (percent && *percent >= 0 && *percent <= 100) return *percent / 100;
        refuse(line,
               QString("\"%1\" não é uma percentagem de solteiros, de 0 a 100. Se é um número de pessoas, falta a "
                       "coluna \"todos\".")
                   .arg(text.trimmed()));
        return 0;
    }

    double ofCounts(const QString& singles, const QString& all, int line)
    {
        const std::optional<double> part = countOf(singles), whole = countOf(all);
        if (!part || !whole)
            refuse(line, QString("\"%1\" e \"%2\" não são dois números de pessoas, inteiros e sem pontos.")
                             .arg(singles.trimmed(), all.trimmed()));
        else if (*whole == 0)
            refuse(line, "O grupo não tem ninguém: a parte dos solteiros não existe.");
        else if (*part > *whole)
            refuse(line, "Os solteiros do grupo são mais do que todos.");
        else
            return *part / *whole;
        return 0;
    }

    void check()
    {
        QStringList missing;
        double most = 0;
        for (std::size_t group = 0; group < groups; ++group) {
            if (!shares_[group]) missing << groupName(group);
            most = std::max(most, shares_[group].value_or(0));
        }
        if (!missing.isEmpty()) return refuse(0, "Faltam os grupos: " + missing.join(", ") + '.');
        if (all_ < 0 && !isDamaged() && most > 0 && most <= 0.01)
            refuse(0, "Nenhum valor passa de 1: parecem partes de 1, e não percentagens. Escreva 85, e não 0,85.");
    }

    const CellTable& sheet_;
    Shares shares_ = {};
    qsizetype group_ = -1, singles_ = -1, all_ = -1; // columns; −1 for one that isn't there
    QList<Problem> problems_;
};

QString told(const Problem& problem, const QString& path)
{
    return QString("%1:%2: %3%4\n")
        .arg(path)
        .arg(problem.line)
        .arg(QString(problem.severity == Problem::Severity::Error ? "" : "aviso: "), problem.text);
}

// "", where the list gives no age.
QString resultOf(const QString& path, QTextStream& err)
{
    const CellTable sheet = readSheet(bytesOf(path));
    const Singles singles(sheet);
    for (const Problem& problem : singles.problems())
        err << told(problem, path);
    if (singles.isDamaged()) return {};
    const std::array<double, groups> shares = singles.shares();
    const std::optional<double> age = statistics::singulateMeanAge(shares);
    if (!age) {
        err << told({0, "Aos 50 anos todos são solteiros: não há idade ao casamento.", Problem::Severity::Error}, path);
        return {};
    }
    static constexpr double percent = 100, half = 2;
    const double at50 = (shares[groups - 2] + shares[groups - 1]) / half * percent;
    return QString("%1: idade média ao primeiro casamento (SMAM, Hajnal) %2 anos; %3 % de solteiros aos 50 anos.\n")
        .arg(path, indicators::decimalComma(*age, 1), indicators::decimalComma(at50, 1));
}

} // namespace

int runSmam(const Order& order, QTextStream& out, QTextStream& err, const std::function<bool()>& goesOn)
{
    try {
        QString results;
        bool areAllTold = true;
        for (const QString& path : order.files) {
            if (!goesOn()) {
                err << "Interrompido.\n";
                return notCounted;
            }
            const QString result = resultOf(path, err);
            areAllTold = areAllTold && !result.isEmpty();
            results += result;
        }
        if (!areAllTold) return notCounted;
        out << results;
        return counted;
    } catch (const std::exception& error) {
        err << QString::fromUtf8(error.what()) << '\n';
    }
    return notCounted;
}

} // namespace study
