#include "quiet.h"
#include "shell/application.h"

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    keepQuietAboutThePlatform();
    testing::InitGoogleTest(&argc, argv);
    Application app(argv);
    Q_INIT_RESOURCE(icons);
    QApplication::setStyle(QStringLiteral("Fusion"));
    return RUN_ALL_TESTS();
}
