// The export of episodes: one state of the BDP, read as a study reads it, and written file by file.
#include "study/exchange/episodes.h"

#include "platform/jet/rows.h"
#include "study/exchange/episodes_p.h"
#include "study/exchange/privacy.h"
#include "study/exchange/tablePackage.h"
#include "study/indicators/settingsJson.h"

#include <algorithm>
#include <memory>

namespace study::exchange {

namespace {

using indicators::Study;
using parish::Snapshot;
using report::PackageJson;

constexpr auto scriptFile = "episodios.R";
constexpr double endOfReading = 0.4, endOfObserving = 0.6; // shares of the work

// The settings, without the list of baptisms, which is of people.
indicators::Settings settingsOf(const jet::Connection& bdp)
{
    indicators::Settings settings = indicators::keptSettings(bdp);
    settings.baptisms.clear();
    return settings;
}

Withheld withheldOf(const jet::Connection& bdp, const EpisodesOptions& options)
{
    if (options.limitYears <= 0) return {};
    return {peopleWhoMayBeAlive(bdp, options.today.addYears(-options.limitYears))};
}

// A part of the whole, for who asks how far it is.
GoesOn partOf(const GoesOn& whole, double from, double until)
{
    if (!whole) return {};
    return [whole, from, until](double done) { return whole(from + (until - from) * done); };
}

class Export
{
public:
    Export(const EpisodeSource& source, const QString& folder, const EpisodesOptions& options, GoesOn goesOn)
        : source_(source), options_(options), goesOn_(std::move(goesOn)), files_(folder)
    {
    }

    EpisodesWritten run()
    {
        for (const EpisodeTable& table : episodeTables())
            write(table);
        writeLeftOut();
        EpisodeFile dictionary(dictionaryTable(), source_.withheld, files_);
        writeDictionary(dictionary);
        end(dictionary);
        files_.add(scriptFile, episodeScript());
        files_.add(report::packageFile, report::bytesOf(package()));
        ask(0);
        files_.place();
        written_.withheldPeople = source_.withheld.people.size();
        return std::move(written_);
    }

private:
    void ask(double ofFile) const
    {
        const auto files = static_cast<double>(episodeTables().size());
        const double done = (static_cast<double>(written_.files.size()) + ofFile) / (files + 1);
        if (goesOn_ && !goesOn_(std::min(1.0, done))) throw Interrupted{};
    }

    template <class Records, class Write>
    void writeEach(const Records& records, const Write& write) const
    {
        static constexpr std::size_t betweenQuestions = 1024;
        std::size_t done = 0;
        for (const auto& record : records) {
            if (done++ % betweenQuestions == 0) ask(static_cast<double>(done) / static_cast<double>(records.size()));
            write(record);
        }
    }

    void write(const EpisodeTable& table)
    {
        EpisodeFile file(table.info, source_.withheld, files_);
        if (table.ofPerson)
            writeEach(source_.study.parish.people(), [&](const parish::Person& person) {
                if (!source_.withheld.hides(&person)) table.ofPerson(person, source_, file);
            });
        else
            writeEach(source_.study.unions, [&](const observation::Union& of) { table.ofUnion(of, source_, file); });
        end(file);
        written_.files.push_back({table.info.name, file.rows()});
        for (const auto& [reason, n] : file.leftOut())
            leftOut_.push_back({table.info.name, reason, n});
    }

    void writeLeftOut()
    {
        EpisodeFile file(leftOutTable(), source_.withheld, files_);
        for (const LeftOut& one : leftOut_) {
            file.text(one.file);
            file.text(one.reason);
            file.number(one.n);
            file.endRow();
        }
        end(file);
        written_.files.push_back({leftOutTable().name, file.rows()});
    }

    void end(EpisodeFile& file)
    {
        const TableInfo& table = file.table();
        const report::PackageFiles::Written out = file.end();
        std::vector<const TableColumn*> columns;
        for (const TableColumn& column : table.columns)
            columns.push_back(&column);
        PackageJson resource =
            report::resourceOf({.name = table.name,
                                .path = table.name + ".csv",
                                .title = table.portuguese,
                                .description = table.portuguese,
                                .bytes = out.bytes,
                                .hash = out.hash},
                               schemaOf(table, columns, {}, {"pessoas", "familias"}, Dialect::Standard));
        report::put(resource, "description_en", table.english);
        resources_.push_back(resource);
    }

    PackageJson package() const
    {
        const parish::Home& home = source_.study.parish.home();
        PackageJson json =
            report::packageOf(home.code.isEmpty() ? home.name : home.code,
                              home.name.isEmpty() ? "Episódios da BDP" : "Episódios da BDP – " + home.name,
                              options_.program, options_.made);
        if (options_.source.isKnown()) json["sources"] = PackageJson::array({report::sourceOf(options_.source)});
        const QByteArray settings = indicators::jsonOf(source_.study.settings);
        json["settings"] = PackageJson::parse(settings.begin(), settings.end());
        if (options_.limitYears > 0) json["withheld"] = source_.withheld.people.size();
        json["resources"] = resources_;
        const QByteArray script = episodeScript();
        json[report::besideResources] =
            PackageJson::array({report::besideOf({.path = scriptFile,
                                                  .title = "Um modelo de sobrevivência em R.",
                                                  .bytes = script.size(),
                                                  .hash = report::hashOf(script)})});
        return json;
    }

    struct LeftOut
    {
        QString file, reason;
        qint64 n = 0;
    };

    const EpisodeSource& source_;
    const EpisodesOptions& options_;
    GoesOn goesOn_;
    report::PackageFiles files_;
    PackageJson resources_ = PackageJson::array();
    std::vector<LeftOut> leftOut_ = {};
    EpisodesWritten written_ = {};
};

} // namespace

EpisodesWritten exportEpisodes(const jet::Connection& bdp, const QString& folder, const EpisodesOptions& options)
{
    // The rows, the settings and who is withheld are of one state; behind it nothing is asked of the BDP.
    auto look = std::make_unique<jet::OneLook>(bdp);
    const indicators::Settings settings = settingsOf(bdp);
    const Withheld withheld = withheldOf(bdp, options);
    const Snapshot parish = Snapshot::read(bdp, partOf(options.goesOn, 0, endOfReading));
    look.reset();
    const Study study = indicators::studyOf(parish, settings, partOf(options.goesOn, endOfReading, endOfObserving));
    const EpisodeSource source{study, withheld};
    return Export(source, folder, options, partOf(options.goesOn, endOfObserving, 1)).run();
}

} // namespace study::exchange
