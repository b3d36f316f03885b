#include "state.h"

#include <QDataStream>
#include <QFile>

static QDataStream& operator<<(QDataStream& out, const Box& box)
{
    return out << box.text << box.title << box.icon << box.question;
}

static QDataStream& operator>>(QDataStream& in, Box& box)
{
    return in >> box.text >> box.title >> box.icon >> box.question;
}

static QDataStream& operator<<(QDataStream& out, const Cost& cost)
{
    return out << cost.clicks << cost.keys << cost.boxes << cost.windows;
}

static QDataStream& operator>>(QDataStream& in, Cost& cost)
{
    return in >> cost.clicks >> cost.keys >> cost.boxes >> cost.windows;
}

static QDataStream& operator<<(QDataStream& out, const Account& account)
{
    return out << account.title << account.cost;
}

static QDataStream& operator>>(QDataStream& in, Account& account)
{
    return in >> account.title >> account.cost;
}

static QDataStream& operator<<(QDataStream& out, const Accounts& accounts)
{
    return out << accounts.whole << accounts.parts << accounts.counting;
}

static QDataStream& operator>>(QDataStream& in, Accounts& accounts)
{
    return in >> accounts.whole >> accounts.parts >> accounts.counting;
}

bool State::read(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return false;
    QDataStream in(&file);
    in >> next >> step >> finished >> restarting >> ended >> failure >> bdp >> splashKept >> programFolderTouched >>
        answers >> picks >> boxes >> opened >> accounts;
    return in.status() == QDataStream::Ok;
}

void State::write(const QString& path) const
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << next << step << finished << restarting << ended << failure << bdp << splashKept << programFolderTouched
        << answers << picks << boxes << opened << accounts;
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite | QIODevice::Unbuffered)) qFatal("the state of the scenario can't be written");
    file.write(bytes); // over the former one: a longer tail of that does no harm
}
