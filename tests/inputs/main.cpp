#include "inputs/driver.h"
#include "inputs/session.h"

#include <QStringList>

int main(int argc, char** argv)
{
    // orv-inputs --play SEED FIRST LAST ONLY FOLDER: one session, for the driver.
    if (argc == 7 && qstrcmp(argv[1], "--play") == 0)
        return Inputs::playSession({QByteArray(argv[2]).toULongLong(), atoi(argv[3]), atoi(argv[4]),
                                    QString::fromLocal8Bit(argv[5]), QString::fromLocal8Bit(argv[6])},
                                   argv);
    return Inputs::runInputs(argc, argv);
}
