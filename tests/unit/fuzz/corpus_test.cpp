// The targets of the fuzzer, over what is kept for them.
#include "fuzz/targets.h"

#include <QDirIterator>
#include <QFile>

#include <gtest/gtest.h>

namespace {

struct Target
{
    const char* name;
    void (*play)(const QByteArray&);
};

class Corpus : public testing::TestWithParam<Target>
{
};

TEST_P(Corpus, HoldsWhateverIsRead)
{
    QDirIterator files(QString(ORV_FUZZ_CORPUS) + '/' + GetParam().name, QDir::Files);
    EXPECT_TRUE(files.hasNext());
    while (files.hasNext()) {
        QFile file(files.next());
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray bytes = file.readAll();
        try {
            GetParam().play(bytes);
            for (qsizetype length = 0; length < qMin<qsizetype>(bytes.size(), 200); ++length)
                GetParam().play(bytes.left(length));
        } catch (const Fuzz::Broken& broken) {
            ADD_FAILURE() << qPrintable(file.fileName()) << ": " << qPrintable(broken.what);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Targets, Corpus,
                         testing::Values(Target{"statements", Fuzz::statements}, Target{"like", Fuzz::like},
                                         Target{"dates", Fuzz::dates}, Target{"numbers", Fuzz::numbers},
                                         Target{"dataFile", Fuzz::dataFile}, Target{"rtf", Fuzz::rtf},
                                         Target{"kleio", Fuzz::kleio}, Target{"table", Fuzz::table},
                                         Target{"gedcom", Fuzz::gedcom}),
                         [](const auto& target) { return std::string(target.param.name); });

} // namespace
