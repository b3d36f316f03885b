#include "platform/forms/entryindex.h"

#include "platform/forms/controls.h"

#include <gtest/gtest.h>

#include <random>

namespace {

int asked = 0;

// The first two letters.
QString beginning(const QString& text)
{
    ++asked;
    return text.left(2);
}

int searched(const ComboBox& list, const QString& key)
{
    for (int i = 0; i < list.count(); ++i)
        if (list.list(i).left(2) == key) return i;
    return -1;
}

} // namespace

TEST(EntryIndex, GivesTheFirstEntryWithAKey)
{
    ComboBox list;
    EXPECT_EQ(EntryIndex::of(list, beginning).first("Br"), -1);
    for (const char* text : {"", "Braga", "Porto", "Bragança"})
        list.add(text);
    EXPECT_EQ(EntryIndex::of(list, beginning).first("Br"), 1);
    EXPECT_EQ(EntryIndex::of(list, beginning).first("Po"), 2);
    EXPECT_EQ(EntryIndex::of(list, beginning).first(""), 0);
    EXPECT_EQ(EntryIndex::of(list, beginning).first("Fa"), -1);
}

TEST(EntryIndex, ReadsEachEntryOnce)
{
    ComboBox list;
    asked = 0;
    for (int i = 0; i < 500; ++i) {
        list.add(QString::number(i));
        EXPECT_EQ(EntryIndex::of(list, beginning).first("Fa"), -1);
        list.setListIndex(i);
    }
    EXPECT_EQ(asked, 500);
}

TEST(EntryIndex, FollowsWhateverBecomesOfTheEntries)
{
    std::mt19937 dice(3);
    const auto roll = [&](int sides) { return static_cast<int>(dice() % static_cast<unsigned>(sides)); };
    const QStringList keys{"", "Al", "Br", "Co", "Fa"};
    ComboBox list;
    for (int turn = 0; turn < 20'000; ++turn) {
        const QString text = keys[roll(5)] + QString::number(roll(9));
        const int entry = list.count() > 0 ? roll(list.count()) : 0;
        switch (roll(40)) {
        case 0:
            list.clear();
            break;
        case 1:
        case 2:
        case 3:
            list.removeItem(entry);
            break;
        case 4:
            list.insertItem(entry, text);
            break;
        case 5:
        case 6:
        case 7:
            list.setItemText(entry, text);
            break;
        default:
            list.add(text);
        }
        const QString key = text.left(2);
        ASSERT_EQ(EntryIndex::of(list, beginning).first(key), searched(list, key)) << turn;
        ASSERT_EQ(EntryIndex::of(list, beginning).first("Al"), searched(list, "Al")) << turn;
    }
}
