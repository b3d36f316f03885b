#include "study/windows/subjectRecords.h"

#include "study/windows/recordSheet.h"
#include "study/windows/subjectCount.h"

#include <algorithm>
#include <functional>
#include <set>

namespace study {

using indicators::Reason;
using indicators::Study;
using indicators::Subject;
using indicators::Who;

namespace {

// Hears for which counts a record is told.
class Listening final : public indicators::Taker
{
public:
    Listening(std::function<bool(const Who&)> isAsked, const parish::Snapshot::GoesOn& goesOn)
        : isAsked_(std::move(isAsked)), goesOn_(goesOn)
    {
    }

    void count(const indicators::Key& key, const Who& who, qint64 amount) override
    {
        if (++counts_ % countsBetweenQuestions == 0) ask();
        if (amount != 0 && isAsked_(who)) heard.insert(key.count);
    }

    void ask() const
    {
        if (goesOn_ && !goesOn_(done)) throw parish::Snapshot::Interrupted{};
    }

    std::set<quint16> heard = {};
    double done = 0;

private:
    std::function<bool(const Who&)> isAsked_;
    const parish::Snapshot::GoesOn& goesOn_;
    unsigned counts_ = 0;
};

// "14/02/1720 (casamento)"
QString told(const observation::Mark& mark)
{
    return shown(mark.day) + " (" + told(mark.by) + ')';
}

QString capitalised(const QString& text)
{
    return text.left(1).toUpper() + text.mid(1);
}

Verdict verdictOf(const Subject& subject, const Study& study, const parish::Snapshot::GoesOn& goesOn,
                  std::function<bool(const Who&)> isAsked)
{
    Listening listening(std::move(isAsked), goesOn);
    const std::vector<indicators::Share> pieces = piecesOf(study.parish);
    for (std::size_t turn = 0; turn < pieces.size(); ++turn) {
        listening.done = static_cast<double>(turn) / static_cast<double>(pieces.size());
        listening.ask();
        subject.fill(study, pieces[turn], listening);
    }
    Verdict verdict;
    for (const quint16 count : listening.heard) {
        const auto reason = std::ranges::find(subject.reasons, count, &Reason::count);
        if (reason != subject.reasons.end())
            verdict.leftOut << QString::fromUtf8(reason->told);
        else if (count < subject.counts.size())
            verdict.counted << QString::fromUtf8(subject.counts[count]);
    }
    return verdict;
}

} // namespace

Verdict verdictOn(const Subject& subject, const Study& study, const parish::Person& person,
                  const parish::Snapshot::GoesOn& goesOn)
{
    return verdictOf(subject, study, goesOn, [&person](const Who& who) { return who.person == &person; });
}

Verdict verdictOn(const Subject& subject, const Study& study, const parish::Family& family,
                  const parish::Snapshot::GoesOn& goesOn)
{
    return verdictOf(subject, study, goesOn, [&family](const Who& who) { return who.family == &family; });
}

QString told(const Verdict& verdict, const QString& title)
{
    QStringList lines{title};
    if (!verdict.leftOut.isEmpty()) lines << "Fica de fora: " + verdict.leftOut.join("; ") + '.';
    if (!verdict.counted.isEmpty()) lines << "Conta em: " + verdict.counted.join("; ") + '.';
    if (lines.size() == 1) lines << "Este tema não trata deste registo: nada nele entra nos números.";
    return lines.join("\r\n");
}

QString observed(const Study& study, const parish::Person& person)
{
    const observation::Presence& presence = study.presenceOf(person);
    QStringList lines;
    lines << (presence.isObserved() ? "Em observação de " + told(presence.from) + " a " + told(presence.until) + '.'
                                    : QString("Nada prova que tenha vivido na freguesia: fora de observação."));
    if (presence.aliveUntil.day.isKnown()) lines << "Última prova de vida: " + told(presence.aliveUntil) + '.';
    if (!person.origin) return lines.join("\r\n");
    const observation::Mark family = observation::familyEndFor(person, study.parish, study.unions);
    lines << (family.day.isKnown() ? "Os outros mostram a família de origem na freguesia até " + told(family) + '.'
                                   : QString("Nada dos outros mostra a família de origem depois deste nascimento."));
    return lines.join("\r\n");
}

QString observed(const Study& study, const parish::Family& family)
{
    const observation::Union& of = study.unionOf(family);
    if (!of.isUnion()) return "Não é uma união: " + className(of) + '.';
    QStringList lines{of.isContradictory() ? capitalised(told(of.openBy)) + '.' : "Classe " + className(of) + '.'};
    lines << (of.marriage.isKnown() ? "Casamento: " + shown(of.marriage) + '.'
                                    : QString("Casamento: sem data que conte."));
    if (of.isClosed())
        lines << "Fim da união: " + shown(of.end) + " (" + told(of.endBy) + ").";
    else if (!of.isContradictory())
        lines << "Fim da união: desconhecido (" + told(of.openBy) + ')' +
                     (of.endBound.isKnown() ? ", o mais tardar a " + shown(of.endBound) + '.' : QString("."));
    lines << (of.wifeBirth.isKnown()
                  ? "Nascimento da mulher: " + shown(of.wifeBirth) + " (" + told(of.wifeBirthBy) + ")."
                  : QString("Nascimento da mulher: desconhecido."));
    return lines.join("\r\n");
}

QStringList cellsOf(const Who& who)
{
    return {who.person ? titleOf(*who.person) : QString(), who.family ? titleOf(*who.family) : QString()};
}

QString countedRecords(std::size_t count)
{
    if (count == 0) return "nenhum registo";
    return count == 1 ? QString("1 registo") : QString::number(count) + " registos";
}

} // namespace study
