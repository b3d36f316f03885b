#include "places/paisesPorNome.h"

#include "platform/forms/controls.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>

namespace {

class Countries : public testing::Test
{
protected:
    Countries()
    {
        for (const char* entry : {"01 - Espanha", "02 - Áustria", "03 - Estónia", "04 - Argélia", "PT - Portugal"})
            list.add(entry);
        list.setView(new PaisesPorNome(&list));
    }

    QString typed(const QString& letters)
    {
        Clock::pass(std::chrono::milliseconds(QApplication::keyboardInputInterval() + 1));
        QTest::keyClicks(&list, letters);
        return list.text();
    }

    ComboBox list;
};

} // namespace

TEST_F(Countries, AreFoundByTheirNames)
{
    EXPECT_EQ(typed("p"), "PT - Portugal");
    EXPECT_EQ(typed("est"), "03 - Estónia");
    EXPECT_EQ(typed("a"), "04 - Argélia") << "the next one from where it stands";
    EXPECT_EQ(typed("aus"), "02 - Áustria");
}

TEST_F(Countries, TakeTurnsWithTheSameLetter)
{
    EXPECT_EQ(typed("e"), "01 - Espanha");
    EXPECT_EQ(typed("e"), "03 - Estónia");
    EXPECT_EQ(typed("ee"), "03 - Estónia") << "Espanha and on";
}

TEST_F(Countries, AreFoundByTheirCodesWhereNoNameFits)
{
    EXPECT_EQ(typed("04"), "04 - Argélia");
    EXPECT_EQ(typed("x"), "04 - Argélia") << "nothing is found";
}
