#include "mutations.h"

#include <QtEndian>

#include <algorithm>

namespace {

constexpr int headerSize = 100;

int pageSize(const QByteArray& bytes)
{
    const int told = bytes.size() < 18 ? 0 : qFromBigEndian<quint16>(bytes.constData() + 16);
    return told == 1 ? 65536 : std::clamp(told, 512, 65536);
}

int pages(const QByteArray& bytes)
{
    return int(bytes.size() / pageSize(bytes));
}

QByteArray noise(Dice& dice, int size)
{
    QByteArray bytes(size, Qt::Uninitialized);
    for (char& byte : bytes)
        byte = char(dice.next());
    return bytes;
}

// Alters the bytes of the file by `change`, where there are enough of them to be a file of ours.
template <class Change>
void alter(const Site& site, Change change)
{
    QByteArray bytes = site.bytes();
    if (bytes.size() < headerSize) return;
    change(bytes);
    site.setBytes(bytes);
}

void flip(QByteArray& bytes, qint64 at, Dice& dice)
{
    bytes[at] = char(bytes[at] ^ (1 << dice.below(8)));
}

void setNumber(QByteArray& bytes, int at, quint32 number)
{
    qToBigEndian(number, bytes.data() + at);
}

quint32 anyNumber(Dice& dice)
{
    static constexpr quint32 edges[] = {0, 1, 2, 3, 0x7fffffff, 0x80000000, 0xffffffff, 65536};
    return dice.chance(60) ? dice.of(edges) : quint32(dice.next());
}

QByteArray page(const QByteArray& bytes, int number)
{
    return bytes.mid(qint64(number) * pageSize(bytes), pageSize(bytes));
}

void setPage(QByteArray& bytes, int number, const QByteArray& content)
{
    bytes.replace(qint64(number) * pageSize(bytes), content.size(), content);
}

} // namespace

const QList<Mutation>& byteMutations()
{
    static const QList<Mutation> all{
        {"bits flipped",
         [](Site& site, Dice& dice) {
             alter(site, [&](QByteArray& bytes) {
                 for (int count = 1 + dice.below(20); count > 0; --count)
                     flip(bytes, dice.below(bytes.size()), dice);
             });
         }},
        {"bits of the first page flipped",
         [](Site& site, Dice& dice) {
             alter(site, [&](QByteArray& bytes) {
                 for (int count = 1 + dice.below(8); count > 0; --count)
                     flip(bytes, dice.below(std::min<qint64>(4096, bytes.size())), dice);
             });
         }},
        {"heads of pages flipped",
         [](Site& site, Dice& dice) {
             alter(site, [&](QByteArray& bytes) {
                 for (int count = 1 + dice.below(6); count > 0; --count)
                     flip(bytes, qint64(dice.below(pages(bytes))) * pageSize(bytes) + dice.below(24), dice);
             });
         }},
        {"a byte of the header",
         [](Site& site, Dice& dice) {
             alter(site, [&](QByteArray& bytes) { bytes[dice.below(headerSize)] = char(dice.next()); });
         }},
        {"a number of the header",
         [](Site& site, Dice& dice) {
             alter(site, [&](QByteArray& bytes) { setNumber(bytes, 16 + 4 * dice.below(21), anyNumber(dice)); });
         }},
        {"another encoding in the header",
         [](Site& site, Dice& dice) { alter(site, [&](QByteArray& bytes) { setNumber(bytes, 56, dice.below(5)); }); }},
        {"a header of the log mode",
         [](Site& site, Dice& dice) {
             alter(site, [&](QByteArray& bytes) {
                 bytes[18] = char(1 + dice.below(3));
                 bytes[19] = char(1 + dice.below(3));
             });
         }},
        {"a list of free pages that leads anywhere",
         [](Site& site, Dice& dice) {
             alter(site, [&](QByteArray& bytes) {
                 setNumber(bytes, 32, 1 + dice.below(pages(bytes) + 3));
                 setNumber(bytes, 36, anyNumber(dice));
             });
         }},
        {"cut off",
         [](Site& site, Dice& dice) {
             alter(site, [&](QByteArray& bytes) { bytes.truncate(dice.below(bytes.size())); });
         }},
        {"cut off between two pages",
         [](Site& site, Dice& dice) {
             alter(site,
                   [&](QByteArray& bytes) { bytes.truncate(qint64(1 + dice.below(pages(bytes))) * pageSize(bytes)); });
         }},
        {"longer than it says",
         [](Site& site, Dice& dice) {
             alter(site, [&](QByteArray& bytes) {
                 bytes += dice.chance(50) ? noise(dice, 1 + dice.below(20000))
                                          : QByteArray(qsizetype(pageSize(bytes)) * (1 + dice.below(5)), '\0');
             });
         }},
        {"a page of zeros",
         [](Site& site, Dice& dice) {
             alter(site, [&](QByteArray& bytes) {
                 setPage(bytes, dice.below(pages(bytes)), QByteArray(pageSize(bytes), '\0'));
             });
         }},
        {"a page of noise",
         [](Site& site, Dice& dice) {
             alter(site, [&](QByteArray& bytes) {
                 setPage(bytes, 1 + dice.below(pages(bytes) - 1), noise(dice, pageSize(bytes)));
             });
         }},
        {"a half page of the past",
         [](Site& site, Dice& dice) {
             alter(site, [&](QByteArray& bytes) {
                 setPage(bytes, dice.below(pages(bytes)), QByteArray(pageSize(bytes) / 2, '\0'));
             });
         }},
        {"two pages swapped",
         [](Site& site, Dice& dice) {
             alter(site, [&](QByteArray& bytes) {
                 const int one = dice.below(pages(bytes));
                 const int other = dice.below(pages(bytes));
                 const QByteArray held = page(bytes, one);
                 setPage(bytes, one, page(bytes, other));
                 setPage(bytes, other, held);
             });
         }},
        {"a page twice",
         [](Site& site, Dice& dice) {
             alter(site, [&](QByteArray& bytes) {
                 setPage(bytes, 1 + dice.below(pages(bytes) - 1), page(bytes, dice.below(pages(bytes))));
             });
         }},
        {"letters that are none",
         [](Site& site, Dice& dice) {
             alter(site, [&](QByteArray& bytes) {
                 for (int count = 5 + dice.below(200); count > 0; --count) {
                     char& byte = bytes[dice.below(bytes.size())];
                     if (byte >= 'a' && byte <= 'z') byte = char(0x80 | dice.below(128));
                 }
             });
         }},
    };
    return all;
}
