// The BDP as it stands at one moment, for a thread that reads it.
#pragma once

#include "platform/jet/connection.h"

#include <QTemporaryDir>

namespace study {

// A copy of the file that goes with this. So the file itself is locked no longer than it takes to copy it, which is
// little beside reading its rows, and whoever reads needs no connection of anybody else.
class ParishCopy
{
public:
    // What is pending in the connection isn't in it. Throws jet::Error.
    explicit ParishCopy(const jet::Connection& bdp);

    // Its connection, opened at the first call and by the thread that makes it; that thread alone uses it, and closes
    // it. Throws jet::Error.
    jet::Connection& open();
    void close() { copy_.close(); }

private:
    QString path() const { return folder_.filePath("leitura.orv"); }

    QTemporaryDir folder_;
    jet::Connection copy_;
};

} // namespace study
