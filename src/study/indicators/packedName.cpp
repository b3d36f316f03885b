#include "study/indicators/packedName.h"

#include "study/names/fold.h"

namespace study::indicators {

namespace {

constexpr int lettersOfANumber = 5;

// Each letter is its place, from 1 on; 0 ends a name. Five of them stay far below 2³¹.
const QString& letters()
{
    static const QString all = QString::fromUtf8("abcdefghijklmnopqrstuvwxyzáàâãçéêíóôõú -");
    return all;
}

qint32 symbols()
{
    return static_cast<qint32>(letters().size()) + 1;
}

qint32 placeOf(QChar letter)
{
    const auto place = letters().indexOf(letter.toLower());
    return static_cast<qint32>(place >= 0 ? place : letters().indexOf(fold::bare(letter.toLower()))) + 1;
}

} // namespace

PackedName packed(const QString& name)
{
    PackedName numbers = {};
    int used = 0;
    for (const QChar letter : name) {
        const qint32 place = placeOf(letter);
        if (place == 0) continue;
        if (used == lettersOfAName) break;
        qint32& number = numbers[static_cast<std::size_t>(used++ / lettersOfANumber)];
        number = number * symbols() + place;
    }
    return numbers;
}

QString unpacked(const PackedName& numbers)
{
    QString name;
    for (qint32 number : numbers) {
        QString part;
        for (; number > 0; number /= symbols())
            part.prepend(letters()[number % symbols() - 1]);
        name += part;
    }
    for (qsizetype i = 0; i < name.size(); ++i)
        if (i == 0 || name[i - 1] == u' ' || name[i - 1] == u'-') name[i] = name[i].toUpper();
    return name;
}

} // namespace study::indicators
