// orv-unit: the unit tests. --room=NAME leaves all out but those of the folder tests/unit/NAME, and those of other
// rooms named so.
#include "quiet.h"
#include "shell/application.h"

#include <QDir>

#include <gtest/gtest.h>

namespace {

QStringList namedIn(int argc, char** argv)
{
    QStringList rooms;
    for (int i = 1; i < argc; ++i)
        if (const QByteArray argument(argv[i]); argument.startsWith("--room="))
            rooms << QString::fromLocal8Bit(argument.mid(7));
    return rooms;
}

QString roomOf(const testing::TestInfo& test)
{
    return QString::fromLocal8Bit(test.file()).section("tests/unit/", -1).section('/', 0, 0);
}

// Of the chosen rooms, as a filter of the tests.
QString testsOf(const QStringList& rooms)
{
    QString names = "-*"; // none, where no test follows
    const auto& all = *testing::UnitTest::GetInstance();
    for (int i = 0; i < all.total_test_suite_count(); ++i) {
        const auto& suite = *all.GetTestSuite(i);
        for (int j = 0; j < suite.total_test_count(); ++j) {
            const auto& test = *suite.GetTestInfo(j);
            if (!rooms.contains(roomOf(test))) continue;
            if (names.startsWith('-')) names.clear();
            names += QString::fromUtf8(suite.name()) + '.' + QString::fromUtf8(test.name()) + ':';
        }
    }
    return names;
}

// A test that leaves the program in another folder, which may go with it, spoils those behind it.
class StaysInItsFolder : public testing::EmptyTestEventListener
{
public:
    void OnTestEnd(const testing::TestInfo&) override
    {
        if (QDir::currentPath() == folder_) return;
        ADD_FAILURE() << "It leaves the program in another folder.";
        QDir::setCurrent(folder_);
    }

private:
    QString folder_ = QDir::currentPath();
};

} // namespace

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    keepQuietAboutThePlatform();
    testing::InitGoogleTest(&argc, argv);
    Application app(argv);
    const QStringList rooms = namedIn(argc, argv);
    if (!rooms.isEmpty()) testing::GTEST_FLAG(filter) = testsOf(rooms).toStdString();
    Q_INIT_RESOURCE(icons);
    QApplication::setStyle(QStringLiteral("Fusion"));
    testing::UnitTest::GetInstance()->listeners().Append(new StaysInItsFolder); // which owns it
    return RUN_ALL_TESTS();
}
