// A BDP without tables, for the rules that read the one in work.
#pragma once

#include "platform/jet/connection.h"
#include "store/session.h"

#include <QTemporaryDir>

// In work for as long as this stands.
class EmptyBdp
{
public:
    EmptyBdp()
    {
        const QString ficheiro = pasta_.filePath("teste.orv");
        jet::createDatabase(ficheiro);
        cnBDP.open(ficheiro);
        cnBDP.beginTrans(); // given up at the close: nothing goes to the disk
    }
    ~EmptyBdp() { cnBDP.close(); }
    EmptyBdp(const EmptyBdp&) = delete;
    EmptyBdp& operator=(const EmptyBdp&) = delete;

private:
    QTemporaryDir pasta_;
};
