// The fields of the window of the settings of a study: shown, and read.
#include "study/windows/frmDefinicoes.h"

#include "platform/jet/rows.h"
#include "store/session.h"
#include "study/windows/studySettingsText.h"

#include <QSignalBlocker>

#include <algorithm>
#include <iterator>

using namespace study;
using indicators::Legitimacy;
using indicators::Settings;

namespace {

constexpr int cohorts[] = {10, 25, 50}, completeAges[] = {45, 50}, averages[] = {5, 9, 11}; // as the lists have them

template <std::size_t n>
int placeOf(int value, const int (&choices)[n])
{
    return static_cast<int>(std::find(std::begin(choices), std::end(choices), value) - std::begin(choices));
}

template <std::size_t n>
void takeChoice(int& into, const ComboBox& list, const int (&choices)[n])
{
    const int entry = list.listIndex();
    if (entry >= 0 && entry < static_cast<int>(n)) into = choices[entry];
}

template <std::size_t n>
void addYears(ComboBox& list, const int (&choices)[n])
{
    for (const int years : choices)
        list.add(QString::number(years) + " anos");
}

} // namespace

void FrmDefinicoes::fillLists()
{
    addYears(*cmbCoorte, cohorts);
    addYears(*cmbCompleta, completeAges);
    addYears(*cmbMedia, averages);
    fillCauses();
    for (const QString which : {"Todos", "Legítimos", "Ilegítimos"})
        cmbNascimentos->add(which);
    for (const QString which : {"Ambos", "Homens", "Mulheres"})
        cmbSexo->add(which);
    cmbConta->add("Como no início");
    for (const Legitimacy each : {Legitimacy::Legitimate, Legitimacy::Legitimised, Legitimacy::Illegitimate,
                                  Legitimacy::Foundling, Legitimacy::Unknown})
        cmbConta->add(inWords(each));
}

void FrmDefinicoes::readFiliations()
{
    jet::Rows rows(cnBDP, jet::NativeSql("select codigo, descricao from infocomplementar where categoria = 'Filia'"));
    while (rows.next()) {
        bool isCode = false;
        const int code = rows.text(0).toInt(&isCode);
        if (isCode) codes_.push_back({code, rows.text(1)});
    }
    std::ranges::sort(codes_, {}, &Filiation::code);
}

// The other parishes of the same municipality; any other one is named by its code.
void FrmDefinicoes::readParishes()
{
    jet::Rows rows(cnBDP, jet::NativeSql("select codparoquia, nomeparoquia from paroquia where codconcelho = (select "
                                         "codconcelho from paroquia where codparoquia = ?) and codparoquia <> ? order "
                                         "by nomeparoquia",
                                         {CodParoquia, CodParoquia}));
    while (rows.next())
        cmbFreguesia->add(rows.text(0) + " – " + rows.text(1));
}

QString FrmDefinicoes::nameOfParish(const QString& code) const
{
    jet::Rows row(cnBDP, jet::NativeSql("select nomeparoquia from paroquia where codparoquia = ?", {code}));
    if (!row.next()) return {};
    const QString name = row.text(0);
    return name.isEmpty() ? code : name;
}

void FrmDefinicoes::showSettings(const Settings& settings)
{
    txtPeriodo_0->setText(shownYear(settings.period.first));
    txtPeriodo_1->setText(shownYear(settings.period.last));
    cmbCoorte->setListIndex(placeOf(settings.cohortYears, cohorts));
    chkCoorte->setChecked(settings.byMarriageCohort);
    cmbNascimentos->setListIndex(static_cast<int>(settings.which));
    cmbSexo->setListIndex(static_cast<int>(settings.gender));
    chkFreguesia->setChecked(settings.localOnly);
    chkAproximados->setChecked(settings.unions.approximateMarriages);
    chkCasado->setChecked(settings.unions.marriedAtDeath);
    chkContraditorias->setChecked(settings.unions.leaveOutContradictory);
    chkDeduzidos->setChecked(settings.derivedBirths);
    chkAbertas->setChecked(settings.openFamilies);
    cmbCompleta->setListIndex(placeOf(settings.completeAge, completeAges));
    cmbMedia->setListIndex(placeOf(settings.movingAverage, averages));
    txtAssina->setText(QString::number(settings.signsFrom));
    txtSinal->setText(QString::number(settings.marksFrom));
    chkCrises->setChecked(settings.skipCrises);
    showBooks(settings);
    showNotes(settings);
    neighbours_ = settings.neighbours;
    showNeighbours();
    filiations_ = settings.filiations;
    showFiliations();
}

void FrmDefinicoes::showBooks(const Settings& settings)
{
    for (std::size_t series = 0; series < books_.size(); ++series) {
        books_[series].first->setText(shownYear(settings.books[series].first));
        books_[series].last->setText(shownYear(settings.books[series].last));
        books_[series].gaps->setText(shownGaps(settings.gaps[series]));
    }
}

void FrmDefinicoes::showNeighbours()
{
    lstVizinhas->clear();
    for (const QString& code : std::as_const(neighbours_))
        lstVizinhas->add(code + " – " + nameOfParish(code));
    cmdTirar->setEnabled(!neighbours_.isEmpty());
}

void FrmDefinicoes::showFiliations()
{
    const int count = static_cast<int>(codes_.size()), row = dtgFiliacoes->row();
    {
        const QSignalBlocker quiet(dtgFiliacoes->selectionModel());
        const bool bare = dtgFiliacoes->rows() == 0;
        dtgFiliacoes->setRows(count == 0 ? 0 : count + 1);
        if (count > 0) {
            if (bare) dtgFiliacoes->setColumns({{"Código", 60}, {"Filiação", 300}, {"Conta como"}});
            dtgFiliacoes->fill(count + 1, [this](int each) -> QStringList {
                const Filiation& one = codes_.at(static_cast<std::size_t>(each) - 1);
                const bool isSet = filiations_.contains(one.code);
                const Legitimacy counts = isSet ? filiations_.value(one.code) : indicators::legitimacyOfCode(one.code);
                return {QString::number(one.code), one.description, inWords(counts) + (isSet ? " (alterado)" : "")};
            });
            dtgFiliacoes->setRow(std::clamp(row, 1, count));
        }
    }
    dtgFiliacoes->viewport()->update();
    dtgFiliacoes_Change();
}

std::optional<Settings> FrmDefinicoes::typed(Problem& problem) const
{
    Settings all = kept_;
    if (!takeNumbers(all, problem) || !takeBooks(all, problem) || !takeNotes(all, problem)) return {};
    takeChoice(all.cohortYears, *cmbCoorte, cohorts);
    takeChoice(all.completeAge, *cmbCompleta, completeAges);
    takeChoice(all.movingAverage, *cmbMedia, averages);
    all.which = static_cast<indicators::Which>(std::max(0, cmbNascimentos->listIndex()));
    all.gender = static_cast<parish::Gender>(std::max(0, cmbSexo->listIndex()));
    all.byMarriageCohort = chkCoorte->isChecked();
    all.localOnly = chkFreguesia->isChecked();
    all.unions.approximateMarriages = chkAproximados->isChecked();
    all.unions.marriedAtDeath = chkCasado->isChecked();
    all.unions.leaveOutContradictory = chkContraditorias->isChecked();
    all.derivedBirths = chkDeduzidos->isChecked();
    all.openFamilies = chkAbertas->isChecked();
    all.skipCrises = chkCrises->isChecked();
    all.neighbours = neighbours_;
    all.filiations = filiations_;
    return all;
}

bool FrmDefinicoes::takeLevel(int& into, TextBox* field, const QString& what, Problem& problem) const
{
    bool isLevel = false;
    const int level = field->text().trimmed().toInt(&isLevel);
    if (isLevel)
        into = level;
    else
        problem = {"O nível a partir do qual " + what + " tem de ser um número inteiro!", field};
    return isLevel;
}

bool FrmDefinicoes::takeNumbers(Settings& into, Problem& problem) const
{
    const auto period = spanFrom(txtPeriodo_0->text(), txtPeriodo_1->text());
    if (!period) {
        problem = {"O período tem de ser de um ano a outro que não seja anterior, como 1700 e 1799; em branco, não tem "
                   "limite!",
                   txtPeriodo_0};
        return false;
    }
    into.period = *period;
    return takeLevel(into.signsFrom, txtAssina, "se assina", problem) &&
           takeLevel(into.marksFrom, txtSinal, "se faz cruz ou sinal", problem);
}

bool FrmDefinicoes::takeBooks(Settings& into, Problem& problem) const
{
    static constexpr std::array<const char*, 4> names{"baptismos", "casamentos", "óbitos", "óbitos de menores"};
    for (std::size_t series = 0; series < books_.size(); ++series) {
        const auto span = spanFrom(books_[series].first->text(), books_[series].last->text());
        if (!span) {
            problem = {QString("Os livros de %1 têm de ir de um ano a outro que não seja anterior; em branco, não têm "
                               "limite!")
                           .arg(names[series]),
                       books_[series].first};
            return false;
        }
        const auto gaps = gapsFrom(books_[series].gaps->text());
        if (!gaps) {
            problem = {
                QString("As lacunas dos livros de %1 têm de ser anos, como \"1810-1811; 1834\"!").arg(names[series]),
                books_[series].gaps};
            return false;
        }
        into.books[series] = *span;
        // As they were kept, unless they are typed otherwise: one without limits isn't shown.
        if (books_[series].gaps->text() != shownGaps(into.gaps[series])) into.gaps[series] = *gaps;
    }
    return true;
}
