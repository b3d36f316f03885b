#include "mutations.h"

#include <QDir>
#include <QFile>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

void clear(const Site& site)
{
    QFile::remove(site.bdp());
}

void makeSocket(const QString& path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const QByteArray name = QFile::encodeName(path);
    if (name.size() >= qsizetype(sizeof address.sun_path)) return;
    qstrncpy(address.sun_path, name.constData(), sizeof address.sun_path);
    const int handle = socket(AF_UNIX, SOCK_STREAM, 0);
    if (bind(handle, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
        qWarning("no socket could be made at %s", name.constData());
    close(handle);
}

} // namespace

const QList<Mutation>& kindMutations()
{
    static const QList<Mutation> all{
        {"no file", [](Site& site, Dice&) { clear(site); }},
        {"an empty file", [](Site& site, Dice&) { site.setBytes({}); }},
        {"a folder",
         [](Site& site, Dice&) {
             clear(site);
             QDir().mkpath(site.bdp());
         }},
        {"a pipe",
         [](Site& site, Dice&) {
             clear(site);
             mkfifo(QFile::encodeName(site.bdp()).constData(), 0600);
         }},
        {"a socket",
         [](Site& site, Dice&) {
             clear(site);
             makeSocket(site.bdp());
         }},
        {"a device",
         [](Site& site, Dice& dice) {
             static constexpr const char* devices[] = {"/dev/zero", "/dev/null", "/dev/full", "/dev/tty"};
             clear(site);
             QFile::link(dice.of(devices), site.bdp());
         }},
        {"a link to a BDP",
         [](Site& site, Dice&) {
             QFile::rename(site.bdp(), site.folder() + "/verdadeira.orv");
             QFile::link(site.folder() + "/verdadeira.orv", site.bdp());
         }},
        {"a link to nothing",
         [](Site& site, Dice&) {
             clear(site);
             QFile::link(site.folder() + "/nada", site.bdp());
         }},
        {"a link to itself",
         [](Site& site, Dice&) {
             clear(site);
             QFile::link(site.bdp(), site.bdp());
         }},
        {"a text", [](Site& site, Dice&) { site.setBytes("Livro de baptismos, 1712\r\n"); }},
        {"a picture",
         [](Site& site, Dice&) { site.setBytes(QByteArray::fromHex("89504e470d0a1a0a0000000d494844520000ffff")); }},
        {"an archive", [](Site& site, Dice&) { site.setBytes("PK\x03\x04" + QByteArray(5000, 'x')); }},
        {"a header and no more", [](Site& site, Dice& dice) { site.setBytes(site.bytes().left(100 + dice.below(2))); }},
        {"the file of another program",
         [](Site& site, Dice&) {
             clear(site);
             Raw raw(site.bdp());
             raw.run("create table songs (a, b); insert into songs values (1, 2)");
         }},
        {"a read-only file", [](Site& site, Dice&) { QFile::setPermissions(site.bdp(), QFile::ReadOwner); }},
    };
    return all;
}
