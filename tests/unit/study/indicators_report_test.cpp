// The report of a study, put together from tallies.
#include "study/generated.h"
#include "study/people.h"

#include "study/indicators/settingEntries.h"
#include "study/indicators/studyReport.h"

namespace study::indicators {

namespace {

constexpr const char* named[]{"pessoas", "sem-nome"};
constexpr Reason nameless[]{{1, "sem nome"}};

void fillNames(const Study& study, const Share& share, Taker& taker)
{
    for (std::size_t i = share.firstPerson; i < share.lastPerson; ++i) {
        const auto& person = study.parish.people()[i];
        taker.count({quint16(person.name.isEmpty() ? 1 : 0), {}}, {.person = &person});
    }
}

std::vector<study::report::Figure> figuresOfNames(const Tally& tally, const Settings& settings)
{
    study::report::Table table{.id = "pessoas", .title = "Pessoas", .columns = {{.title = "Nº"}}};
    table.rows.push_back({study::report::number(tally.sum(0))});
    table.notes << QString::number(settings.books[0].first);
    return {table};
}

constexpr Subject oneSubject{"um", "Gente", "Um", "Contam todos.", named, nameless, fillNames, figuresOfNames};
constexpr Subject otherSubject{"outro", "Mais", "Outro", "Contam todos.", named, nameless, fillNames, figuresOfNames};
constexpr Subject sameGroup{"de-novo", "Gente", "De novo", "Contam todos.", named, nameless, fillNames, figuresOfNames};
const std::vector<const Subject*> threeSubjects{&oneSubject, &otherSubject, &sameGroup};

Counted countedAs(const QString& name, const Settings& settings = {})
{
    return {.source = {.path = "/bdp/" + name + ".orv", .bytes = 5, .sha256 = name},
            .settings = settings,
            .name = name,
            .code = QString::number(name.size())};
}

Tallies of(const std::vector<Counted>& parishes)
{
    Tallies tallies{.parishes = parishes, .bySubject = {{"um", {}}, {"outro", {}}, {"de-novo", {}}}};
    tallies.bySubject["um"].add({0, {}}, 7);
    return tallies;
}

QString settingTold(const std::vector<report::Told>& told, const QString& name)
{
    for (const report::Told& setting : told)
        if (setting.name == name) return setting.value;
    ADD_FAILURE() << "not told: " << qPrintable(name);
    return {};
}

class CountingAParish : public People
{
};

} // namespace

TEST(AReportOfAStudy, HasAChapterForEachGroup)
{
    const QDateTime made(QDate(2026, 11, 22), QTime(10, 0));
    const auto report = reportOf(of({countedAs("Moinhos")}), {.program = "ORV 1.0.6", .made = made}, threeSubjects);
    EXPECT_EQ(report.title, "Estudo demográfico");
    EXPECT_EQ(report.parish, "Moinhos");
    EXPECT_EQ(report.parishCode, "7");
    EXPECT_EQ(report.program, "ORV 1.0.6");
    EXPECT_EQ(report.made, made);
    ASSERT_EQ(report.sources.size(), 1);
    EXPECT_EQ(report.sources[0].path, "/bdp/Moinhos.orv");
    ASSERT_EQ(report.chapters.size(), 2);
    EXPECT_EQ(report.chapters[0].title, "Gente");
    ASSERT_EQ(report.chapters[0].sections.size(), 2);
    EXPECT_EQ(report.chapters[0].sections[1].id, "de-novo");
    EXPECT_EQ(report.chapters[1].sections[0].title, "Outro");
    const auto* table = std::get_if<study::report::Table>(&report.chapters[0].sections[0].figures.at(0));
    ASSERT_TRUE(table);
    EXPECT_EQ(table->rows[0][0].value, decltype(study::report::Cell::value)(7.0));
}

TEST(AReportOfAStudy, LeavesOutASubjectThatWasNotCounted)
{
    Tallies tallies = of({countedAs("Moinhos")});
    tallies.bySubject.erase("outro");
    const auto report = reportOf(tallies, {}, threeSubjects);
    ASSERT_EQ(report.chapters.size(), 1);
    EXPECT_EQ(report.chapters[0].sections.size(), 2);
}

TEST(AReportOfAStudy, TellsOfAllParishesWhatItIsOf)
{
    Settings narrow;
    narrow.books[0] = {1700, 1800};
    const auto report =
        reportOf(of({countedAs("Moinhos"), countedAs("Vale", narrow), countedAs("")}), {}, threeSubjects);
    EXPECT_EQ(report.parish, "Moinhos, Vale e ") << "without a name and without a file";
    EXPECT_EQ(report.parishCode, "7, 4, 0");
    EXPECT_EQ(report.sources.size(), 3);
    EXPECT_EQ(settingTold(report.settings, "Anos que os livros cobrem – Moinhos"), "todos os anos");
    EXPECT_EQ(settingTold(report.settings, "Anos que os livros cobrem – Vale"), "baptismos 1700–1800");
    EXPECT_EQ(settingTold(report.settings, "Lacunas dos livros"), "nenhuma");
    const auto& table = std::get<study::report::Table>(report.chapters[0].sections[0].figures[0]);
    EXPECT_EQ(table.notes, QStringList("1700")) << "the years that all cover";
}

TEST(AReportOfAStudy, CallsAParishWithoutANameByItsFile)
{
    Counted parish = countedAs("Moinhos");
    parish.name = parish.code = QString();
    const auto report = reportOf(of({parish}), {}, threeSubjects);
    EXPECT_EQ(report.parish, "Moinhos");
    EXPECT_EQ(report.parishCode, "");
}

TEST(AReportOfAStudy, TellsEachSettingInWords)
{
    Settings settings;
    settings.period = {1700, 1850};
    settings.books = {YearSpan{1590, 0}, YearSpan{0, 1900}, YearSpan{}, YearSpan{1780, 1780}};
    settings.gaps[2] = {{1810, 1811}, {1830, 1830}, {}};
    settings.which = Which::Illegitimate;
    settings.gender = study::parish::Gender::Female;
    settings.missingBirths = 0.05;
    settings.neighbours = {"030101", "030102"};
    settings.filiations = {{20, Legitimacy::Illegitimate}, {17, Legitimacy::Foundling}};
    const auto told = inWords(of({countedAs("Moinhos", settings)}));
    ASSERT_EQ(told.size(), settingEntries().size());
    EXPECT_EQ(settingTold(told, "Período dos acontecimentos"), "1700–1850");
    EXPECT_EQ(settingTold(told, "Anos de cada coorte ou período"), "50 anos");
    EXPECT_EQ(settingTold(told, "Anos que os livros cobrem"),
              "baptismos desde 1590; casamentos até 1900; óbitos de menores 1780");
    EXPECT_EQ(settingTold(told, "Lacunas dos livros"), "óbitos 1810–1811, 1830");
    EXPECT_EQ(settingTold(told, "Que nascimentos contam"), "ilegítimos");
    EXPECT_EQ(settingTold(told, "Sexo"), "mulheres");
    EXPECT_EQ(settingTold(told, "Só os actos da freguesia"), "sim");
    EXPECT_EQ(settingTold(told, "Parte dos nascimentos que falta nos livros"), "5 %");
    EXPECT_EQ(settingTold(told, "Freguesias vizinhas"), "030101, 030102");
    EXPECT_EQ(settingTold(told, "O que contam os códigos de filiação"), "17: exposto; 20: ilegítima");
    for (const report::Told& setting : inWords(of({countedAs("Moinhos")})))
        EXPECT_FALSE(setting.value.isEmpty()) << qPrintable(setting.name);
}

TEST_F(CountingAParish, CountsEachSubjectAndTellsWhoseItIs)
{
    run("insert into infopar (cod, nome) values ('030899', 'Moinhos')");
    for (const char* name : {"Rui", "Gil", ""})
        person({name});
    const auto parish = study::parish::Snapshot::read(bdp);
    Settings settings;
    settings.cohortYears = 25;
    for (const int threads : {0, 1, 2, 9}) {
        const Tallies tallies = talliesOf(studyOf(parish, settings), {.path = "a.orv"}, threads, {}, threeSubjects);
        ASSERT_EQ(tallies.parishes.size(), 1);
        EXPECT_EQ(tallies.parishes[0],
                  (Counted{.source = {.path = "a.orv"}, .settings = settings, .name = "Moinhos", .code = "030899"}));
        ASSERT_EQ(tallies.bySubject.size(), 3);
        EXPECT_EQ(tallies.bySubject.at("um").sum(0), 2) << threads;
        EXPECT_EQ(tallies.bySubject.at("de-novo").sum(1), 1) << threads;
    }
}

TEST_F(CountingAParish, TellsHowManyAndNeverWho)
{
    person({"Rui"});
    const auto parish = study::parish::Snapshot::read(bdp);
    Settings settings;
    settings.baptisms[study::parish::PersonNumber(1)] = {QDate(1750, 3, 1), QDate(1750, 3, 4)};
    const Tallies tallies = talliesOf(studyOf(parish, settings), {.path = "a.orv"}, 1, {}, threeSubjects);
    EXPECT_FALSE(jsonOf(tallies, threeSubjects).contains("1750-03-01"));
}

TEST_F(CountingAParish, GoesOnlyAsFarAsItIsLet)
{
    const auto parish = study::parish::Snapshot::read(bdp);
    const Study study = studyOf(parish, {});
    std::vector<double> shares;
    const auto onlyTwice = [&](double done) { return shares.push_back(done), shares.size() < 3; };
    EXPECT_THROW(talliesOf(study, {}, 1, onlyTwice, threeSubjects), study::parish::Snapshot::Interrupted);
    EXPECT_EQ(shares, (std::vector<double>{0, 1.0 / 3, 2.0 / 3}));
    EXPECT_THROW(talliesOf(
                     study, {}, 3, [](double) { return false; }, threeSubjects),
                 study::parish::Snapshot::Interrupted);
}

} // namespace study::indicators
