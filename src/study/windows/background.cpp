#include "study/windows/background.h"

#include "study/parish/snapshot.h"

#include <QCoreApplication>

#include <algorithm>
#include <atomic>
#include <exception>
#include <mutex>
#include <new>
#include <utility>
#include <vector>

namespace study {

struct Background::Work
{
    std::function<void(const GoesOn&)> compute;
    std::atomic<bool> stops = false, isOver = false;
    QString failure = {};
    bool cancelled = false;
    int told = -1; // percent

    std::mutex telling;
    Background* owner = nullptr; // null once it has gone

    void run();

private:
    bool tell(double done);
    template <class Call>
    void toOwner(Call call);
};

namespace {

// Threads whose owner has gone before they have noticed it.
class Leftovers
{
public:
    static Leftovers& all()
    {
        static Leftovers leftovers;
        return leftovers;
    }
    ~Leftovers() { join(false); }
    Leftovers(const Leftovers&) = delete;
    Leftovers& operator=(const Leftovers&) = delete;

    template <class Work>
    void add(std::thread thread, std::shared_ptr<Work> work)
    {
        join(true);
        threads_.push_back({std::move(thread), [work = std::move(work)] { return work->isOver.load(); }});
    }

private:
    // What the threads use may be gone behind the application.
    Leftovers()
    {
        qAddPostRoutine([] { all().join(false); });
    }

    void join(bool thoseThatAreOver)
    {
        std::erase_if(threads_, [&](Leftover& one) {
            if (thoseThatAreOver && !one.isOver()) return false;
            one.thread.join();
            return true;
        });
    }

    struct Leftover
    {
        std::thread thread;
        std::function<bool()> isOver;
    };
    std::vector<Leftover> threads_;
};

} // namespace

Background::Background(std::function<void(const GoesOn&)> compute) : work_(std::make_shared<Work>())
{
    work_->compute = std::move(compute);
    work_->owner = this;
    thread_ = std::thread([work = work_] { work->run(); });
}

Background::~Background()
{
    cancel();
    {
        const std::scoped_lock lock(work_->telling);
        work_->owner = nullptr;
    }
    Leftovers::all().add(std::move(thread_), std::move(work_));
}

void Background::cancel()
{
    work_->stops = true;
}

bool Background::wasCancelled() const
{
    return work_->cancelled || work_->stops;
}

const QString& Background::failure() const
{
    return work_->failure;
}

// On the thread, as all below. What is emitted through the queue of the receiver finds what was written before. What
// the work holds goes before it is told to be over.
void Background::Work::run()
{
    try {
        if (!tell(0)) throw parish::Snapshot::Interrupted{};
        compute([this](double done) { return tell(done); });
    } catch (const parish::Snapshot::Interrupted&) {
        cancelled = true;
    } catch (const std::bad_alloc&) {
        failure = "não há memória que chegue.";
    } catch (const std::exception& error) {
        failure = QString::fromUtf8(error.what());
    }
    compute = {};
    toOwner([](Background* to) { emit to->ended(); });
    isOver = true;
}

bool Background::Work::tell(double done)
{
    static constexpr double whole = 100;
    const int percent = static_cast<int>(done * whole);
    if (percent != std::exchange(told, percent)) toOwner([percent](Background* to) { emit to->progressed(percent); });
    return !stops;
}

template <class Call>
void Background::Work::toOwner(Call call)
{
    const std::scoped_lock lock(telling);
    if (owner)
        QMetaObject::invokeMethod(
            owner, [to = owner, call] { call(to); }, Qt::QueuedConnection);
}

Background::GoesOn partOf(const Background::GoesOn& goesOn, double from, double to)
{
    return [goesOn, from, to](double done) { return goesOn(from + (to - from) * done); };
}

Outcome takeOutcome(std::unique_ptr<Background>& work)
{
    Background* const over = work.release();
    over->deleteLater();
    return {.cancelled = over->wasCancelled(), .failure = over->failure()};
}

} // namespace study
