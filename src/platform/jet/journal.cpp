#include "platform/jet/journal.h"

#include "platform/jet/error.h"

#include <QByteArray>
#include <QtEndian>

#include <sqlite3.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace jet {

namespace {

namespace fs = std::filesystem;

constexpr qint64 headerBytes = 28;
constexpr qint64 smallestSector = 512;
constexpr quint32 uncounted = 0xffffffff; // as many pages as the journal has room for
constexpr size_t pagesOfAFullMemory = 16; // the engine keeps two megabytes, of 65,536 bytes a page at most
constexpr char journalMagic[] = "\xd9\xd5\x05\xf9\x20\xa1\x63\xd7";
constexpr qint64 magicBytes = sizeof journalMagic - 1;

quint32 numberAt(const QByteArray& bytes, qsizetype at)
{
    return at + 4 > bytes.size() ? 0 : qFromBigEndian<quint32>(bytes.constData() + at);
}

bool isPowerOfTwo(quint32 value)
{
    return value != 0 && (value & (value - 1)) == 0;
}

struct Beside
{
    QString file;  // of the BDP
    QString shown; // of what lies beside it

    [[noreturn]] void refuse(const char* why) const
    {
        throw Error{number::engineFailure, QStringLiteral("O ficheiro \"%1\" não foi aberto, e nada foi alterado: ao "
                                                          "lado dele está \"%2\", que %3.")
                                               .arg(file, shown, QString::fromUtf8(why))};
    }
};

// The file that is open in the engine, read under the locks that the engine holds on it: a handle of our own would take
// them away when it is closed.
class OpenFile
{
public:
    explicit OpenFile(sqlite3* database) { sqlite3_file_control(database, "main", SQLITE_FCNTL_FILE_POINTER, &file_); }

    qint64 size() const
    {
        sqlite3_int64 bytes = 0;
        return isOpen() && file_->pMethods->xFileSize(file_, &bytes) == SQLITE_OK ? bytes : 0;
    }
    QByteArray read(qint64 at, qint64 length) const
    {
        QByteArray bytes(length, '\0');
        if (isOpen()) file_->pMethods->xRead(file_, bytes.data(), int(length), at); // a short one leaves noughts behind
        return bytes;
    }
    // Somebody is in the middle of a transaction, whose journal is alive.
    bool isBeingWritten() const
    {
        int reserved = 0;
        return isOpen() && file_->pMethods->xCheckReservedLock(file_, &reserved) == SQLITE_OK && reserved != 0;
    }

private:
    bool isOpen() const { return file_ && file_->pMethods; }

    sqlite3_file* file_ = nullptr;
};

// The fields of the first page that tell one file, and one state of it, from another.
struct FirstPage
{
    QByteArray bytes;

    bool isDatabase() const { return bytes.startsWith(QByteArray("SQLite format 3\0", 16)); }
    quint32 pageSize() const
    {
        const auto size = qFromBigEndian<quint16>(bytes.constData() + 16);
        return size == 1 ? 65536 : size;
    }
    quint32 changes() const { return numberAt(bytes, 24); }
    quint32 schema() const { return numberAt(bytes, 40); }
    quint32 encoding() const { return numberAt(bytes, 56); }
    quint32 changesAgain() const { return numberAt(bytes, 92); } // as the engine writes them a second time
    // Nothing where a tool has written that doesn't count.
    std::optional<quint32> pages() const
    {
        if (numberAt(bytes, 28) == 0 || changes() != changesAgain()) return {};
        return numberAt(bytes, 28);
    }

    // Whether this is the first page of `file` before the transaction whose journal holds this one. A power cut may
    // have left any sectors of that as they were, and the front alone of one of them.
    bool precedes(const FirstPage& file) const
    {
        if (!isDatabase() || pageSize() != file.pageSize()) return false;
        if (encoding() != 0 && encoding() != file.encoding()) return false; // the first table settles it
        if (file.changes() != file.changesAgain()) return changesAgain() == file.changesAgain();
        const quint32 written = file.changes() - changes(); // the outermost commit counts one
        const quint32 altered = file.schema() - schema();
        if (written == 0 && bytes.first(smallestSector) == file.bytes.first(smallestSector)) return true;
        if (written > 1 || altered > (written == 0 ? 0 : 10'000)) return false;
        // The rest of it tells the tables, and changes with them alone.
        return altered != 0 || bytes.mid(100) == file.bytes.mid(100);
    }
};

// A journal with a name at its end hands its work on to the file of that name, and deletes it.
bool namesAFile(std::ifstream& journal, qint64 size)
{
    if (size < 16) return false;
    QByteArray tail(16, '\0');
    journal.seekg(size - 16);
    journal.read(tail.data(), 16);
    if (tail.mid(8) != QByteArray(journalMagic, magicBytes)) return false;
    const qint64 length = numberAt(tail, 0);
    return length > 0 && length <= size - 16;
}

class Examination
{
public:
    Examination(const OpenFile& file, const fs::path& journal, Beside beside)
        : file_(file), journal_(journal, std::ios::binary | std::ios::ate),
          size_(std::max<qint64>(0, journal_.tellg())), beside_(std::move(beside))
    {
    }

    void run()
    {
        if (namesAFile(journal_, size_)) beside_.refuse("manda mexer num outro ficheiro");
        const QByteArray header = read(0, headerBytes);
        // Without its first byte it is not played back: so a commit or a power cut may leave it.
        if (header.isEmpty() || header[0] == '\0' || file_.isBeingWritten()) return;
        if (!beginsAsOne(header)) refuseForeign();
        sector_ = numberAt(header, 20);
        page_ = numberAt(header, 24);
        pages_ = numberAt(header, 16);
        if (size_ < smallestSector || sector_ == 0) return; // cut off in its header: the file was not touched yet
        requireFitting();
        if (pages_ > 0) requireSamePast();
    }

private:
    [[noreturn]] void refuseForeign() const { beside_.refuse("não é o diário que um programa interrompido lá deixou"); }
    void require(bool holds) const
    {
        if (!holds) refuseForeign();
    }

    QByteArray read(qint64 at, qint64 length)
    {
        QByteArray bytes(length, '\0');
        journal_.clear();
        journal_.seekg(at);
        journal_.read(bytes.data(), length);
        return bytes.left(qsizetype(journal_.gcount()));
    }

    // The magic is written last, and a power cut may leave its front alone.
    static bool beginsAsOne(const QByteArray& header)
    {
        const QByteArray magic(journalMagic, magicBytes);
        const QByteArray begin = header.left(magicBytes);
        qsizetype same = 0;
        while (same < begin.size() && begin[same] == magic[same])
            ++same;
        return begin.mid(same).count('\0') == begin.size() - same;
    }

    // The measures of the journal are those of the file.
    void requireFitting()
    {
        const qint64 bytes = file_.size();
        FirstPage now{file_.read(0, 100)};
        if (page_ == 0) page_ = now.pageSize();
        require(isPowerOfTwo(sector_) && sector_ >= 32 && sector_ <= 65536);
        require(isPowerOfTwo(page_) && page_ >= 512 && page_ <= 65536);
        // The very first transaction, of a file that was empty.
        if (pages_ == 0) return require(bytes <= page_);
        require(now.isDatabase() && now.pageSize() == page_);
        filePages_ = (bytes + page_ - 1) / page_;
        require(pages_ <= filePages_);
    }

    // What would be played back is what the file was before its last transaction.
    void requireSamePast()
    {
        readCopies();
        const FirstPage now{file_.read(0, page_)};
        const FirstPage before{firstPage_.isEmpty() ? now.bytes : firstPage_};
        require(before.precedes(now));
        if (firstPage_.isEmpty()) requireSameKinds();
        // The file is cut to this many pages, be it one that the journal says nothing else about.
        require(before.pages() ? pages_ >= *before.pages() : pages_ == filePages_);
    }

    // Without a copy of the first page, the memory of the program was full before any page was taken into use or given
    // up: each is of the kind that it was, a leaf of a table, of an index, and so on, as its first byte tells. Of many,
    // some may have become another kind since the journal last reached the disk.
    void requireSameKinds()
    {
        size_t others = 0;
        for (const auto& [page, at] : copies_)
            others += read(at, 1) == file_.read((qint64(page) - 1) * page_, 1) ? 0 : 1;
        require(others <= (copies_.size() < pagesOfAFullMemory ? 0 : copies_.size() / 2));
    }

    // Those that would be played back: what lies behind the first one that is not whole isn't.
    void readCopies()
    {
        const qint64 record = qint64(page_) + 8;
        for (qint64 at = 0; at + sector_ <= size_; at = (at + sector_ - 1) / sector_ * sector_) {
            const QByteArray header = read(at, headerBytes);
            if (!header.startsWith(QByteArray(journalMagic, magicBytes))) return;
            const quint32 count = numberAt(header, 8);
            at += sector_;
            for (quint32 i = 0; (count == uncounted || i < count) && at + record <= size_; ++i, at += record)
                if (!readCopy(at, numberAt(header, 12))) return;
        }
    }

    bool readCopy(qint64 at, quint32 seed)
    {
        const QByteArray record = read(at, qint64(page_) + 8);
        const quint32 page = numberAt(record, 0);
        const QByteArray content = record.mid(4, page_);
        if (page == 0 || checksum(content, seed) != numberAt(record, 4 + page_)) return false;
        require(page <= pages_ && copies_.size() < pages_);
        copies_.emplace_back(page, at + 4);
        if (page == 1 && firstPage_.isEmpty()) firstPage_ = content;
        return true;
    }

    static quint32 checksum(const QByteArray& page, quint32 seed)
    {
        for (qsizetype i = page.size() - 200; i > 0; i -= 200)
            seed += quint8(page[i]);
        return seed;
    }

    const OpenFile& file_;
    std::ifstream journal_;
    qint64 size_;
    Beside beside_;
    quint32 sector_ = 0;
    quint32 page_ = 0;
    quint32 pages_ = 0;                              // of the file before the transaction
    qint64 filePages_ = 0;                           // of the file now
    QByteArray firstPage_;                           // what it was; empty: it is not among the copies
    std::vector<std::pair<quint32, qint64>> copies_; // pages, and where the journal holds what they were
};

// Whether something stands at `path`; refused where it is no regular file: a pipe would be waited for, a link written
// through.
bool standsThere(const fs::path& path, const Beside& beside)
{
    std::error_code ignored;
    const fs::file_status status = fs::symlink_status(path, ignored);
    if (!fs::exists(status)) return false;
    if (!fs::is_regular_file(status)) beside.refuse("não é um ficheiro comum");
    return true;
}

} // namespace

void requireHarmlessCompanions(sqlite3* database, const QString& path)
{
    const std::string name = sqlite3_db_filename(database, "main"); // with all links followed
    const auto companion = [&](const char* suffix) { return fs::path(name + suffix); };
    const auto beside = [&](const char* suffix) { return Beside{path, QString::fromStdString(name + suffix)}; };
    standsThere(companion("-shm"), beside("-shm"));
    std::error_code ignored;
    if (standsThere(companion("-wal"), beside("-wal")) && fs::file_size(companion("-wal"), ignored) > 0)
        beside("-wal").refuse(
            "guarda o que outro programa escreveu: a BDP tem de ser fechada primeiro por esse programa");
    if (standsThere(companion("-journal"), beside("-journal"))) {
        const OpenFile file(database);
        Examination(file, companion("-journal"), beside("-journal")).run();
    }
}

void requireNoLog(sqlite3* database, const QString& path)
{
    constexpr qint64 readVersionAt = 19;
    constexpr char withALog = 2;
    if (OpenFile(database).read(readVersionAt, 1).front() != withALog) return;
    throw Error{number::engineFailure,
                QStringLiteral("O ficheiro \"%1\" foi usado por um programa que o deixou de um modo que não se lê sem "
                               "escrever ao lado dele: abra-o primeiro no ORV, onde se possa escrever.")
                    .arg(path)};
}

} // namespace jet
