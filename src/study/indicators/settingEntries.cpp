#include "study/indicators/settingEntries.h"

#include "platform/jet/error.h"
#include "study/indicators/causes.h"
#include "study/indicators/settingWords.h"

#include <algorithm>
#include <initializer_list>
#include <limits>
#include <string>
#include <utility>

namespace study::indicators {

namespace {

using nlohmann::json;

constexpr int lastYear = 9999;
constexpr double mostMissingBirths = 0.2;

// In the order of Series.
constexpr std::array<const char*, 4> seriesWords{"baptismos", "casamentos", "obitos", "obitos_de_menores"};
// In the order of their enumerations.
constexpr std::array<const char*, 3> whichWords{"todos", "legitimos", "ilegitimos"};
constexpr std::array<const char*, 3> genderWords{"ambos", "homens", "mulheres"};
constexpr std::array<const char*, 5> legitimacyWords{"legitima", "legitimada", "ilegitima", "exposto", "desconhecida"};

template <std::size_t n>
std::optional<std::size_t> placeOf(const json& value, const std::array<const char*, n>& words)
{
    if (!value.is_string()) return {};
    const auto& word = value.get_ref<const std::string&>();
    const auto found = std::find(words.begin(), words.end(), word);
    if (found == words.end()) return {};
    return static_cast<std::size_t>(found - words.begin());
}

template <class Enum, std::size_t n>
bool takeWord(Enum& into, const json& value, const std::array<const char*, n>& words)
{
    const auto place = placeOf(value, words);
    if (place) into = static_cast<Enum>(*place);
    return place.has_value();
}

template <class Enum, std::size_t n>
json wordOf(Enum value, const std::array<const char*, n>& words)
{
    return words[static_cast<std::size_t>(value)];
}

bool takeSwitch(bool& into, const json& value)
{
    if (!value.is_boolean()) return false;
    into = value.get<bool>();
    return true;
}

bool takeOneOf(int& into, const json& value, std::initializer_list<int> choices)
{
    const auto number = wholeOf(value, 0, std::numeric_limits<int>::max());
    if (!number || std::find(choices.begin(), choices.end(), *number) == choices.end()) return false;
    into = static_cast<int>(*number);
    return true;
}

json toldOf(const YearSpan& span)
{
    return json::array({span.first, span.last});
}

std::optional<YearSpan> spanOf(const json& value)
{
    if (!value.is_array() || value.size() != 2) return {};
    const auto first = wholeOf(value[0], 0, lastYear), last = wholeOf(value[1], 0, lastYear);
    if (!first || !last || (*last != 0 && *last < *first)) return {};
    return YearSpan{static_cast<int>(*first), static_cast<int>(*last)};
}

bool takeSpan(YearSpan& into, const json& value)
{
    const auto span = spanOf(value);
    if (span) into = *span;
    return span.has_value();
}

bool takeSpans(std::vector<YearSpan>& into, const json& value)
{
    if (!value.is_array()) return false;
    std::vector<YearSpan> spans;
    for (const json& one : value) {
        const auto span = spanOf(one);
        if (!span) return false;
        spans.push_back(*span);
    }
    into = std::move(spans);
    return true;
}

json toldOfSpans(const std::vector<YearSpan>& spans)
{
    json told = json::array();
    for (const YearSpan& span : spans)
        told.push_back(toldOf(span));
    return told;
}

// One value for each series.
template <class Each, class Told>
json toldBySeries(const std::array<Each, 4>& each, Told told)
{
    json all = json::object();
    for (std::size_t i = 0; i < each.size(); ++i)
        all[seriesWords[i]] = told(each[i]);
    return all;
}

template <class Each, class Take>
bool takeBySeries(std::array<Each, 4>& into, const json& value, Take take)
{
    if (!value.is_object()) return false;
    std::array<Each, 4> all = {};
    for (std::size_t i = 0; i < all.size(); ++i) {
        const auto one = value.find(seriesWords[i]);
        if (one != value.end() && !take(all[i], *one)) return false;
    }
    into = std::move(all);
    return true;
}

json toldOf(const QStringList& texts)
{
    json told = json::array();
    for (const QString& text : texts)
        told.push_back(text.toStdString());
    return told;
}

bool takeTexts(QStringList& into, const json& value)
{
    const auto isText = [](const json& one) { return one.is_string(); };
    if (!value.is_array() || !std::all_of(value.begin(), value.end(), isText)) return false;
    QStringList texts;
    for (const json& one : value)
        texts << QString::fromStdString(one.get_ref<const std::string&>());
    into = texts;
    return true;
}

json toldOf(const QHash<int, Legitimacy>& filiations)
{
    json told = json::object();
    for (auto it = filiations.cbegin(); it != filiations.cend(); ++it)
        told[std::to_string(it.key())] = wordOf(it.value(), legitimacyWords);
    return told;
}

bool takeFiliations(QHash<int, Legitimacy>& into, const json& value)
{
    if (!value.is_object()) return false;
    QHash<int, Legitimacy> filiations;
    for (const auto& [key, word] : value.items()) {
        bool isCode = false;
        const int code = QString::fromStdString(key).toInt(&isCode);
        Legitimacy legitimacy = Legitimacy::Unknown;
        if (!isCode || !takeWord(legitimacy, word, legitimacyWords)) return false;
        filiations.insert(code, legitimacy);
    }
    into = filiations;
    return true;
}

bool takeMissingBirths(double& into, const json& value)
{
    if (!value.is_number()) return false;
    const auto share = value.get<double>();
    if (!(share >= 0 && share <= mostMissingBirths)) return false;
    into = share;
    return true;
}

bool takeLevel(int& into, const json& value)
{
    const auto level = wholeOf(value, std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
    if (level) into = static_cast<int>(*level);
    return level.has_value();
}

bool takeYear(int& into, const json& value)
{
    const auto year = wholeOf(value, 0, lastYear);
    if (year) into = static_cast<int>(*year);
    return year.has_value();
}

bool takeText(QString& into, const json& value)
{
    if (!value.is_string()) return false;
    into = QString::fromStdString(value.get_ref<const std::string&>());
    return true;
}

using Baptisms = std::map<parish::PersonNumber, BaptismDays>;

// [[12, "1750-03-01", "1750-03-04"], …]: the number of the child, its birth, its baptism.
json toldOf(const Baptisms& baptisms)
{
    json told = json::array();
    for (const auto& [child, days] : baptisms)
        told.push_back(json::array({parish::value(child), days.birth.toString(Qt::ISODate).toStdString(),
                                    days.baptism.toString(Qt::ISODate).toStdString()}));
    return told;
}

bool takeDay(QDate& into, const json& value)
{
    if (!value.is_string()) return false;
    into = QDate::fromString(QString::fromStdString(value.get_ref<const std::string&>()), Qt::ISODate);
    return into.isValid();
}

bool takeBaptisms(Baptisms& into, const json& value)
{
    if (!value.is_array()) return false;
    Baptisms baptisms;
    for (const json& one : value) {
        BaptismDays days;
        if (!one.is_array() || one.size() != 3) return false;
        const auto child = wholeOf(one[0], 1, std::numeric_limits<qint64>::max());
        if (!child || !takeDay(days.birth, one[1]) || !takeDay(days.baptism, one[2])) return false;
        baptisms[parish::PersonNumber(*child)] = days;
    }
    into = std::move(baptisms);
    return true;
}

json toldOf(const QMap<QString, QString>& causes)
{
    json told = json::object();
    for (auto it = causes.cbegin(); it != causes.cend(); ++it)
        told[it.key().toStdString()] = it.value().toStdString();
    return told;
}

bool takeCauses(QMap<QString, QString>& into, const json& value)
{
    if (!value.is_object()) return false;
    QMap<QString, QString> causes;
    for (const auto& [beginning, id] : value.items()) {
        QString cause;
        if (!takeText(cause, id) || causeById(cause) < 0) return false;
        causes.insert(QString::fromStdString(beginning), cause);
    }
    into = causes;
    return true;
}

std::vector<Entry> countingEntries()
{
    return {
        {"periodo", "período dos acontecimentos", Defines::Counting,
         [](const Settings& s) { return words::ofSpan(s.period); }, [](const Settings& s) { return toldOf(s.period); },
         [](Settings& s, const json& value) { return takeSpan(s.period, value); }},
        {"anos_da_coorte", "anos de cada coorte ou período", Defines::Counting,
         [](const Settings& s) { return words::ofYears(s.cohortYears); },
         [](const Settings& s) { return json(s.cohortYears); },
         [](Settings& s, const json& value) {
             return takeOneOf(s.cohortYears, value, {10, 25, 50});
         }},
        {"por_coorte_de_casamento", "por coorte de casamento", Defines::Counting,
         [](const Settings& s) { return words::ofYesNo(s.byMarriageCohort); },
         [](const Settings& s) { return json(s.byMarriageCohort); },
         [](Settings& s, const json& value) { return takeSwitch(s.byMarriageCohort, value); }},
        {"nascimentos", "que nascimentos contam", Defines::Counting,
         [](const Settings& s) { return words::ofWhich(s.which); },
         [](const Settings& s) { return wordOf(s.which, whichWords); },
         [](Settings& s, const json& value) { return takeWord(s.which, value, whichWords); }},
        {"sexo", "sexo", Defines::Counting, [](const Settings& s) { return words::ofGender(s.gender); },
         [](const Settings& s) { return wordOf(s.gender, genderWords); },
         [](Settings& s, const json& value) { return takeWord(s.gender, value, genderWords); }},
        {"so_da_freguesia", "só os actos da freguesia", Defines::Counting,
         [](const Settings& s) { return words::ofYesNo(s.localOnly); },
         [](const Settings& s) { return json(s.localOnly); },
         [](Settings& s, const json& value) { return takeSwitch(s.localOnly, value); }},
        {"casamentos_aproximados", "casamentos de data aproximada", Defines::Counting,
         [](const Settings& s) { return words::ofYesNo(s.unions.approximateMarriages); },
         [](const Settings& s) { return json(s.unions.approximateMarriages); },
         [](Settings& s, const json& value) { return takeSwitch(s.unions.approximateMarriages, value); }},
        {"casado_no_obito", "o óbito de um casado termina a união", Defines::Counting,
         [](const Settings& s) { return words::ofYesNo(s.unions.marriedAtDeath); },
         [](const Settings& s) { return json(s.unions.marriedAtDeath); },
         [](Settings& s, const json& value) { return takeSwitch(s.unions.marriedAtDeath, value); }},
        {"familias_contraditorias_fora", "famílias que se contradizem ficam de fora", Defines::Counting,
         [](const Settings& s) { return words::ofYesNo(s.unions.leaveOutContradictory); },
         [](const Settings& s) { return json(s.unions.leaveOutContradictory); },
         [](Settings& s, const json& value) { return takeSwitch(s.unions.leaveOutContradictory, value); }},
        {"familias_abertas", "famílias abertas contam até à última observação do casal", Defines::Counting,
         [](const Settings& s) { return words::ofYesNo(s.openFamilies); },
         [](const Settings& s) { return json(s.openFamilies); },
         [](Settings& s, const json& value) { return takeSwitch(s.openFamilies, value); }},
        {"nascimentos_deduzidos", "nascimentos deduzidos de idades declaradas", Defines::Counting,
         [](const Settings& s) { return words::ofYesNo(s.derivedBirths); },
         [](const Settings& s) { return json(s.derivedBirths); },
         [](Settings& s, const json& value) { return takeSwitch(s.derivedBirths, value); }},
        {"idade_da_familia_completa", "idade da mulher na família completa", Defines::Counting,
         [](const Settings& s) { return words::ofYears(s.completeAge); },
         [](const Settings& s) { return json(s.completeAge); },
         [](Settings& s, const json& value) {
             return takeOneOf(s.completeAge, value, {45, 50});
         }},
        {"assina_desde", "nível a partir do qual se assina", Defines::Counting,
         [](const Settings& s) { return QString::number(s.signsFrom); },
         [](const Settings& s) { return json(s.signsFrom); },
         [](Settings& s, const json& value) { return takeLevel(s.signsFrom, value); }},
        {"sinal_desde", "nível a partir do qual se faz cruz ou sinal", Defines::Counting,
         [](const Settings& s) { return QString::number(s.marksFrom); },
         [](const Settings& s) { return json(s.marksFrom); },
         [](Settings& s, const json& value) { return takeLevel(s.marksFrom, value); }},
    };
}

std::vector<Entry> furtherEntries()
{
    return {
        {"livros", "anos que os livros cobrem", Defines::Parish,
         [](const Settings& s) { return words::ofBooks(s.books); },
         [](const Settings& s) { return toldBySeries(s.books, [](const YearSpan& span) { return toldOf(span); }); },
         [](Settings& s, const json& value) { return takeBySeries(s.books, value, takeSpan); }},
        {"lacunas", "lacunas dos livros", Defines::Parish, [](const Settings& s) { return words::ofGaps(s.gaps); },
         [](const Settings& s) { return toldBySeries(s.gaps, toldOfSpans); },
         [](Settings& s, const json& value) { return takeBySeries(s.gaps, value, takeSpans); }},
        {"freguesias_vizinhas", "freguesias vizinhas", Defines::Parish,
         [](const Settings& s) { return words::ofCodes(s.neighbours); },
         [](const Settings& s) { return toldOf(s.neighbours); },
         [](Settings& s, const json& value) { return takeTexts(s.neighbours, value); }},
        {"filiacoes", "o que contam os códigos de filiação", Defines::Parish,
         [](const Settings& s) { return words::ofFiliations(s.filiations); },
         [](const Settings& s) { return toldOf(s.filiations); },
         [](Settings& s, const json& value) { return takeFiliations(s.filiations, value); }},
        {"causas_de_morte", "palavras que dizem a causa de morte", Defines::Parish,
         [](const Settings& s) { return words::ofCauses(s.causes); },
         [](const Settings& s) { return toldOf(s.causes); },
         [](Settings& s, const json& value) { return takeCauses(s.causes, value); }},
        {"palavras_do_nascimento", "palavras das notas antes do dia do nascimento", Defines::Parish,
         [](const Settings& s) { return words::ofNotes(s.birthWords); },
         [](const Settings& s) { return json(s.birthWords.toStdString()); },
         [](Settings& s, const json& value) { return takeText(s.birthWords, value); }},
        {"palavras_do_baptismo", "palavras das notas antes do dia do baptismo", Defines::Parish,
         [](const Settings& s) { return words::ofNotes(s.baptismWords); },
         [](const Settings& s) { return json(s.baptismWords.toStdString()); },
         [](Settings& s, const json& value) { return takeText(s.baptismWords, value); }},
        {"lista_de_baptismos", "lista de nascimentos e baptismos", Defines::Parish,
         [](const Settings& s) { return words::ofBaptisms(s.baptisms.size()); },
         [](const Settings& s) { return toldOf(s.baptisms); },
         [](Settings& s, const json& value) { return takeBaptisms(s.baptisms, value); }},
        {"nascimentos_em_falta", "parte dos nascimentos que falta nos livros", Defines::Showing,
         [](const Settings& s) { return words::ofShare(s.missingBirths); },
         [](const Settings& s) { return json(s.missingBirths); },
         [](Settings& s, const json& value) { return takeMissingBirths(s.missingBirths, value); }},
        {"media_movel", "anos da média móvel", Defines::Showing,
         [](const Settings& s) { return words::ofYears(s.movingAverage); },
         [](const Settings& s) { return json(s.movingAverage); },
         [](Settings& s, const json& value) {
             return takeOneOf(s.movingAverage, value, {5, 9, 11});
         }},
        {"base_do_indice", "primeiro dos dez anos da base dos índices", Defines::Showing,
         [](const Settings& s) { return words::ofBase(s.indexBase); },
         [](const Settings& s) { return json(s.indexBase); },
         [](Settings& s, const json& value) { return takeYear(s.indexBase, value); }},
        {"crises_fora_da_base", "anos de crise fora da base do índice", Defines::Showing,
         [](const Settings& s) { return words::ofYesNo(s.skipCrises); },
         [](const Settings& s) { return json(s.skipCrises); },
         [](Settings& s, const json& value) { return takeSwitch(s.skipCrises, value); }},
    };
}

} // namespace

const std::vector<Entry>& settingEntries()
{
    static const std::vector<Entry> all = [] {
        std::vector<Entry> made = countingEntries();
        const std::vector<Entry> further = furtherEntries();
        made.insert(made.end(), further.begin(), further.end());
        return made;
    }();
    return all;
}

json toldOf(const Settings& settings)
{
    json all = json::object();
    for (const Entry& entry : settingEntries())
        all[entry.key] = entry.told(settings);
    return all;
}

Settings settingsTold(const json& told)
{
    if (!told.is_object())
        throw jet::Error{jet::number::typeMismatch, "Isto não são os ajustes de um estudo: o texto não é um objecto "
                                                    "JSON."};
    Settings settings;
    for (const Entry& entry : settingEntries()) {
        const auto value = told.find(entry.key);
        if (value != told.end() && !entry.take(settings, *value))
            throw jet::Error{jet::number::typeMismatch,
                             QString("O ajuste \"%1\" (%2) tem um valor que não serve.").arg(entry.key, entry.title)};
    }
    return settings;
}

std::optional<qint64> wholeOf(const json& value, qint64 least, qint64 most)
{
    if (!value.is_number_integer()) return {};
    constexpr auto top = static_cast<quint64>(std::numeric_limits<qint64>::max());
    if (value.is_number_unsigned() && value.get<quint64>() > top) return {};
    const auto number = value.get<qint64>();
    if (number < least || number > most) return {};
    return number;
}

} // namespace study::indicators
