// What one window decides, for the others that show it.
#pragma once

#include <QObject>

#include <utility>

namespace study {

// Of all windows of the program.
class DecisionNews : public QObject
{
    Q_OBJECT

public:
    static DecisionNews& all();

    // Decides something, takes it back, or writes what is no record: who listens is told before and after, also where
    // it fails.
    template <class Work>
    auto during(Work&& work)
    {
        const Telling telling(*this);
        return std::forward<Work>(work)();
    }

signals:
    void begins();
    void over();

private:
    DecisionNews() = default;
    struct Telling
    {
        explicit Telling(DecisionNews& from) : news(from) { emit news.begins(); }
        ~Telling() { emit news.over(); }
        Telling(const Telling&) = delete;
        Telling& operator=(const Telling&) = delete;
        DecisionNews& news;
    };
};

} // namespace study
