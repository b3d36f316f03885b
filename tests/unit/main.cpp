#include "quiet.h"

#include <gtest/gtest.h>

#include <QApplication>

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    keepQuietAboutThePlatform();
    testing::InitGoogleTest(&argc, argv);
    QApplication app(argc, argv);
    Q_INIT_RESOURCE(icons);
    QApplication::setStyle(QStringLiteral("Fusion"));
    return RUN_ALL_TESTS();
}
