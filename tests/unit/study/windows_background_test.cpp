// A computation on a thread of its own, which may outlive whoever has asked for it.
#include "study/windows/background.h"

#include "forms/house.h"

#include <atomic>
#include <memory>
#include <new>
#include <thread>

using study::Background;

namespace {

class WorkInTheBackground : public House
{
};

TEST_F(WorkInTheBackground, IsLeftWithoutWaitingForIt)
{
    struct State
    {
        std::atomic<bool> begun = false, mayEnd = false, isOver = false;
    };
    const auto state = std::make_shared<State>();
    {
        Background background([state](const Background::GoesOn&) { // asks nobody
            state->begun = true;
            while (!state->mayEnd)
                std::this_thread::yield();
            state->isOver = true;
        });
        ASSERT_TRUE(QTest::qWaitFor([&] { return state->begun.load(); }, 60000));
    }
    EXPECT_FALSE(state->isOver) << "who has asked for it has gone first";
    state->mayEnd = true;
    EXPECT_TRUE(QTest::qWaitFor([&] { return state->isOver.load(); }, 60000));
}

TEST_F(WorkInTheBackground, TellsThatThereIsTooLittleMemory)
{
    bool ended = false;
    Background background([](const Background::GoesOn&) { throw std::bad_alloc(); });
    QObject::connect(&background, &Background::ended, &window, [&] { ended = true; });
    ASSERT_TRUE(QTest::qWaitFor([&] { return ended; }, 60000));
    EXPECT_EQ(background.failure(), "não há memória que chegue.");
    EXPECT_FALSE(background.wasCancelled());
}

} // namespace
