// Copies of a BDP, and the making of a new one.
#include "measures/all.h"

#include "kit/stage.h"
#include "measures/newBdp.h"
#include "platform/desktop/desktop.h"
#include "store/copiaDiaria.h"
#include "store/modBD.h"
#include "store/session.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sqlite3.h>

#include <fcntl.h>
#include <unistd.h>

namespace bench {

namespace {

// Each turn is the first write of another day, which waits for the copy of the file as it was, or until it is clear
// that the copy takes longer than a moment.
class FirstWrite : public StagedSides
{
public:
    explicit FirstWrite(int people) : StagedSides(people, Files::Own)
    {
        setDiaDaCopia([this] { return day_; });
        vigiaCopiaDiaria();
    }

    ~FirstWrite() override
    {
        cnBDP.setObserver({});
        setDiaDaCopia({});
    }

    void prepare(int) override
    {
        day_ = day_.addDays(1);
        name_ = day_.toString(Qt::ISODate); // what is the same isn't written
    }

    void ours(int) override { cnBDP.execute(jet::NativeSql("update infopar set nome = ?", {name_})); }
    void bare(int) override { bareSide().run("update infopar set nome = ?", {name_.toUtf8()}); }

    void finish(int) override
    {
        esperaCopiaDiaria();
        QDir(pastaDasCopias(cnBDP.dataSource())).removeRecursively();
    }

private:
    QDate day_{2026, 11, 22};
    QString name_;
};

// The bare copy reaches the disk as well.
class Backup : public StagedSides
{
public:
    explicit Backup(int people) : StagedSides(people, Files::Shared), folder_(newFolder()) {}

    void ours(int) override { cnBDP.copyTo(folder_ + "/copia.orv"); }

    void bare(int) override
    {
        const QByteArray path = QFile::encodeName(folder_ + "/bare.orv");
        sqlite3* copy = nullptr;
        sqlite3_open(path.constData(), &copy);
        sqlite3_exec(copy, "pragma journal_mode = memory; pragma synchronous = off", nullptr, nullptr, nullptr);
        sqlite3_backup* backup = sqlite3_backup_init(copy, "main", bareSide().handle(), "main");
        sqlite3_backup_step(backup, -1);
        sqlite3_backup_finish(backup);
        sqlite3_close(copy);
        const int file = open(path.constData(), O_RDONLY);
        fsync(file);
        close(file);
    }

    void finish(int) override
    {
        for (const char* name : {"/copia.orv", "/bare.orv"})
            QFile::remove(folder_ + name);
    }

private:
    QString folder_;
};

// From the full reference data: the bare side has the rows in memory.
class Creation : public Sides
{
public:
    Creation() : folder_(newFolder())
    {
        Desktop::setProgramFolder(ORV_DATA_DIR);
        EscreveBDP(folder_ + "/model.orv");
        contents_ = contentsOf(folder_ + "/model.orv");
    }

    void ours(int) override { EscreveBDP(folder_ + "/nova.orv"); }
    void bare(int) override { writeContents(contents_, folder_ + "/bare.orv"); }

    void finish(int) override
    {
        for (const char* name : {"/nova.orv", "/bare.orv"})
            QFile::remove(folder_ + name);
    }

private:
    QString folder_;
    NewBdp contents_;
};

} // namespace

std::vector<Measure> copies()
{
    return {{.name = "first-write",
             .event = "the first write of a day",
             .goal = {.flat = false, .ms = {{0, 100}}},
             .make = [](int people) { return std::make_unique<FirstWrite>(people); },
             .turns = 9},
            {"backup", "backup", {1.5, false}, [](int people) { return std::make_unique<Backup>(people); }, 5},
            {.name = "create",
             .event = "creation of a BDP from the reference data",
             .goal = {.ratio = 1.5, .flat = false},
             .make = [](int) { return std::make_unique<Creation>(); },
             .turns = 7,
             .sized = false}};
}

} // namespace bench
