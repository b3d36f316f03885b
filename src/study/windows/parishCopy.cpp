#include "study/windows/parishCopy.h"

#include <QFile>

#include <chrono>

namespace study {

ParishCopy::ParishCopy(const jet::Connection& bdp)
{
    if (!folder_.isValid())
        throw jet::Error(jet::number::pathNotFound,
                         "Não é possível criar uma pasta temporária: " + folder_.errorString());
    if (bdp.transactionLevel() > 0) {
        bdp.copyTo(path());
        return;
    }
    if (QFile empty(path()); !empty.open(QIODevice::WriteOnly))
        throw jet::Error(jet::number::permissionDenied, QString("Não é possível escrever em \"%1\".").arg(path()));
    bdp.copyPages(path(), path(), std::chrono::milliseconds::max());
}

jet::Connection& ParishCopy::open()
{
    if (copy_.state() == jet::Connection::Closed) copy_.open(path());
    return copy_;
}

} // namespace study
