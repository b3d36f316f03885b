#include "study/indicators/studyReport.h"

#include "study/indicators/settingEntries.h"

#include <QFileInfo>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <future>

namespace study::indicators {

namespace {

using Known = std::span<const Subject* const>;

constexpr std::chrono::milliseconds betweenLooks{50};

// The subjects, each counted whole by the thread that takes it.
class Counts
{
public:
    Counts(const Study& study, Known known) : study_(study), known_(known), tallies_(known.size()) {}

    // False where none is left.
    bool countNext()
    {
        const std::size_t place = next_++;
        if (ended_ || place >= known_.size()) return false;
        tallies_[place] = tallyOf(*known_[place], study_);
        ++done_;
        return true;
    }
    void countAll()
    {
        while (countNext()) {
        }
    }
    void end() { ended_ = true; }
    bool isEnded() const { return ended_; }
    double share() const { return known_.empty() ? 1 : double(done_) / double(known_.size()); }
    Tally& operator[](std::size_t place) { return tallies_[place]; }

private:
    const Study& study_;
    Known known_;
    std::vector<Tally> tallies_;
    std::atomic<std::size_t> next_ = 0, done_ = 0;
    std::atomic<bool> ended_ = false;
};

QString nameOf(const Counted& parish)
{
    return parish.name.isEmpty() ? QFileInfo(parish.source.path).completeBaseName() : parish.name;
}

// "Moinhos, Vale e Ribeira"
QString enumerated(const QStringList& names)
{
    if (names.size() < 2) return names.join(QString());
    return names.mid(0, names.size() - 1).join(", ") + " e " + names.last();
}

QString capitalised(const QString& text)
{
    return text.left(1).toUpper() + text.mid(1);
}

bool differs(const Entry& entry, const std::vector<Counted>& parishes)
{
    return std::any_of(parishes.begin(), parishes.end(), [&](const Counted& one) {
        return entry.told(one.settings) != entry.told(parishes.front().settings);
    });
}

report::Chapter& chapterOf(report::Report& report, const QString& group)
{
    const auto found = std::find_if(report.chapters.begin(), report.chapters.end(),
                                    [&](const report::Chapter& chapter) { return chapter.title == group; });
    return found != report.chapters.end() ? *found : report.chapters.emplace_back(report::Chapter{.title = group});
}

report::Section sectionOf(const Subject& subject, const Tally& tally, const Settings& settings)
{
    return {.id = subject.id,
            .title = subject.title,
            .method = subject.method,
            .figures = subject.figures(tally, settings)};
}

} // namespace

Tallies talliesOf(const Study& study, const parish::Source& source, int threads, const GoesOn& goesOn, Known known)
{
    Counts counts(study, known);
    const auto ask = [&] {
        if (goesOn && !goesOn(counts.share())) counts.end();
    };
    std::vector<std::future<void>> others;
    for (int i = 1; i < threads; ++i)
        others.push_back(std::async(std::launch::async, [&counts] { counts.countAll(); }));
    ask();
    while (counts.countNext())
        ask();
    for (std::future<void>& other : others) {
        while (other.wait_for(betweenLooks) != std::future_status::ready)
            ask();
        other.get();
    }
    if (counts.isEnded()) throw parish::Snapshot::Interrupted{};

    const parish::Home& home = study.parish.home();
    Settings settings = study.settings;
    settings.baptisms.clear(); // counts tell how many, and never who
    Tallies tallies{.parishes = {{.source = source, .settings = settings, .name = home.name, .code = home.code}}};
    for (std::size_t i = 0; i < known.size(); ++i)
        tallies.bySubject.emplace(known[i]->id, std::move(counts[i]));
    return tallies;
}

std::vector<report::Told> inWords(const Tallies& tallies)
{
    std::vector<report::Told> told;
    const Settings settings = settingsOf(tallies);
    for (const Entry& entry : settingEntries()) {
        const QString title = capitalised(entry.title);
        if (entry.defines != Defines::Parish || !differs(entry, tallies.parishes)) {
            told.push_back({.name = title, .value = entry.words(settings)});
            continue;
        }
        for (const Counted& parish : tallies.parishes)
            told.push_back(
                {.name = QString("%1 – %2").arg(title, nameOf(parish)), .value = entry.words(parish.settings)});
    }
    return told;
}

report::Report reportOf(const Tallies& tallies, const Heading& heading, Known known, const GoesOn& goesOn)
{
    report::Report report{.title = heading.title, .program = heading.program, .made = heading.made};
    QStringList names, codes;
    for (const Counted& parish : tallies.parishes) {
        report.sources.push_back(parish.source);
        names << nameOf(parish);
        if (!parish.code.isEmpty()) codes << parish.code;
    }
    report.parish = enumerated(names);
    report.parishCode = codes.join(", ");
    report.settings = inWords(tallies);
    const Settings settings = settingsOf(tallies);
    double asked = 0;
    for (const Subject* subject : known) {
        if (goesOn && !goesOn(asked++ / static_cast<double>(known.size()))) throw parish::Snapshot::Interrupted{};
        const auto counted = tallies.bySubject.find(subject->id);
        if (counted == tallies.bySubject.end()) continue;
        chapterOf(report, subject->group).sections.push_back(sectionOf(*subject, counted->second, settings));
    }
    return report;
}

} // namespace study::indicators
