#include "study/indicators/labels.h"

#include "study/indicators/packedName.h"

#include <algorithm>

namespace study::indicators {

namespace {

constexpr int lettersMore = 5; // of the number where the code of a label stands

} // namespace

Reading::At labelled(const QString& name, qint32 code)
{
    const PackedName letters = packed(name);
    return {letters[0], letters[1], letters[2], code};
}

QString labelOf(const Reading::At& at)
{
    QString name = unpacked({at[0], at[1], at[2]}).toLower();
    if (name.isEmpty()) return at[3] == 0 ? QString("por dizer") : QString("(%1)").arg(at[3]);
    name[0] = name[0].toUpper();
    return name.size() < lettersOfAName ? name : QString("%1… (%2)").arg(name).arg(at[3]);
}

Reading::At labelledByName(const QString& name)
{
    static const PackedName nothing = {};
    QString letters; // those that can be held
    for (const QChar letter : name.simplified())
        if (packed(letter) != nothing) letters += letter;
    const PackedName first = packed(letters.left(lettersOfAName)),
                     more = packed(letters.mid(lettersOfAName, lettersMore));
    return {first[0], first[1], first[2], more[0]};
}

QString toldName(const Reading::At& at)
{
    QString name = (unpacked({at[0], at[1], at[2]}) + unpacked({at[3], 0, 0})).toLower();
    if (name.isEmpty()) return "por dizer";
    name[0] = name[0].toUpper();
    return name.size() < lettersOfAName + lettersMore ? name : name + u'…';
}

Table byLabel(const Reading& reading, quint16 count, Table table, const QString& labels, const QString& amounts,
              QString (*name)(const Reading::At&))
{
    table.columns = {textColumn(labels), countColumn(amounts), decimalColumn("Em 100", "%")};
    std::vector<Reading::Part> parts = reading.cellsOf(count);
    const auto isMore = [](const Reading::Part& one, const Reading::Part& other) { return one.n > other.n; };
    std::stable_sort(parts.begin(), parts.end(), isMore);
    const Reading::Part all = reading.part(count);
    for (const Reading::Part& part : parts)
        table.rows.push_back({report::text(name(part.keys.front().at)), counted(part), percent(part, all)});
    return table;
}

} // namespace study::indicators
