// A main window over an empty BDP, which is the one in work.
#pragma once

#include "forms/house.h"
#include "platform/jet/database.h"
#include "shell/beginSession.h"
#include "store/modBD.h"
#include "store/session.h"

#include <QTemporaryDir>

class Parish : public House
{
protected:
    Parish()
    {
        jet::createDatabase(folder.filePath("a.orv"));
        cnBDP.open(folder.filePath("a.orv"));
        CriaTabelas(cnBDP, ORV_DATA_DIR "/CriarTab.dat");
    }
    ~Parish() override
    {
        Forms::clear();
        cnBDP.close();
        beginSession();
    }

    QTemporaryDir folder;
};
