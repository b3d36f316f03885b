#include "mutations.h"

#include <QDir>
#include <QFile>
#include <QtEndian>

#include <sys/stat.h>

namespace {

const QByteArray journalMagic = QByteArray::fromHex("d9d505f920a163d7");

// The head of a journal, in a sector of its own, and the trailer that names a super-journal.
QByteArray journalHead(quint32 records, quint32 pages, quint32 pageSize)
{
    QByteArray head(512, '\0');
    head.replace(0, journalMagic.size(), journalMagic);
    const quint32 numbers[] = {records, 0, pages, 512, pageSize};
    char* at = head.data() + journalMagic.size();
    for (const quint32 number : numbers) {
        qToBigEndian(number, at);
        at += sizeof number;
    }
    return head;
}

QByteArray superName(const QString& path)
{
    const QByteArray name = path.toUtf8();
    quint32 sum = 0;
    for (const char letter : name)
        sum += quint32(qint32(letter));
    QByteArray bytes(4, '\0');
    qToBigEndian(quint32(0x40000000 / 4096 + 1), bytes.data()); // the page that is never used
    bytes += name;
    QByteArray tail(8, '\0');
    qToBigEndian(quint32(name.size()), tail.data());
    qToBigEndian(sum, tail.data() + 4);
    return bytes + tail + journalMagic;
}

const char* aSuffix(Dice& dice)
{
    static constexpr const char* all[] = {"-journal", "-journal", "-wal", "-shm"};
    return dice.of(all);
}

void putBeside(const Site& site, const char* suffix, const QByteArray& bytes)
{
    Site::setBytesOf(site.beside(suffix), bytes);
}

void spoil(const QString& path, Dice& dice)
{
    QByteArray bytes = Site::bytesOf(path);
    if (bytes.isEmpty()) return;
    if (dice.chance(40)) bytes.truncate(dice.below(bytes.size()));
    for (int count = dice.below(10); count > 0 && !bytes.isEmpty(); --count)
        bytes[dice.below(bytes.size())] = char(dice.next());
    Site::setBytesOf(path, bytes);
}

} // namespace

QByteArray journalThatNames(const QString& superJournal)
{
    return journalHead(0, 1, 4096) + superName(superJournal);
}

QByteArray journalOfAnother()
{
    QByteArray record(4 + 4096 + 4, '\0');
    qToBigEndian(quint32(2), record.data());
    quint32 sum = 0; // of the nonce and every 200th byte of the page, which are all zero
    qToBigEndian(sum, record.data() + 4 + 4096);
    return journalHead(1, 50, 4096) + record;
}

const QList<Mutation>& companyMutations()
{
    static const QList<Mutation> all{
        {"broken off in the middle of a change", [](Site& site, Dice&) { site.breakOff("delete"); }},
        {"broken off, with a log", [](Site& site, Dice&) { site.breakOff("wal"); }},
        {"broken off, and its journal spoilt",
         [](Site& site, Dice& dice) {
             site.breakOff("delete");
             spoil(site.beside("-journal"), dice);
         }},
        {"broken off, and its log spoilt",
         [](Site& site, Dice& dice) {
             site.breakOff("wal");
             spoil(site.beside("-wal"), dice);
         }},
        {"a journal that names a super-journal",
         [](Site& site, Dice&) { putBeside(site, "-journal", journalThatNames(site.bystander())); }},
        {"a journal of its own that names a super-journal",
         [](Site& site, Dice&) {
             site.breakOff("delete");
             site.belongs = false;
             putBeside(site, "-journal", Site::bytesOf(site.beside("-journal")) + superName(site.bystander()));
         }},
        {"a journal of another file", [](Site& site, Dice&) { putBeside(site, "-journal", journalOfAnother()); }},
        {"a journal with numbers of chance",
         [](Site& site, Dice& dice) {
             putBeside(site, "-journal",
                       journalHead(quint32(dice.below(5) - 1), quint32(dice.below(200)), 512U << dice.below(9)) +
                           QByteArray(dice.below(9000), char(dice.next())));
         }},
        {"noise beside the file",
         [](Site& site, Dice& dice) {
             QByteArray noise(dice.below(10000), '\0');
             for (char& byte : noise)
                 byte = char(dice.next());
             putBeside(site, aSuffix(dice), noise);
         }},
        {"an empty file beside it", [](Site& site, Dice& dice) { putBeside(site, aSuffix(dice), {}); }},
        {"a pipe beside it",
         [](Site& site, Dice& dice) { mkfifo(QFile::encodeName(site.beside(aSuffix(dice))).constData(), 0600); }},
        {"a folder beside it", [](Site& site, Dice& dice) { QDir().mkpath(site.beside(aSuffix(dice)) + "/dentro"); }},
        {"a link beside it", [](Site& site, Dice& dice) { QFile::link(site.bystander(), site.beside(aSuffix(dice))); }},
        {"a link to nothing beside it",
         [](Site& site, Dice& dice) { QFile::link(site.folder() + "/nada", site.beside(aSuffix(dice))); }},
    };
    return all;
}
