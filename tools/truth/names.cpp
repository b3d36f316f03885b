#include "names.h"

#include <QFile>

#include <algorithm>
#include <numeric>
#include <utility>
#include <vector>

namespace truth {

namespace {

struct Frequency
{
    const char* name;
    int early, late; // before 1700 and from 1760 on, of a thousand or so
};

constexpr Frequency men[]{
    {"João", 160, 130},   {"Manuel", 120, 155}, {"António", 120, 150}, {"Francisco", 100, 95}, {"Domingos", 105, 70},
    {"José", 15, 160},    {"Pedro", 70, 22},    {"Gonçalo", 35, 6},    {"Bento", 22, 24},      {"Sebastião", 22, 10},
    {"Jerónimo", 22, 10}, {"Gaspar", 20, 3},    {"Baltasar", 14, 2},   {"Miguel", 18, 14},     {"Simão", 16, 6},
    {"Paulo", 16, 6},     {"Mateus", 12, 8},    {"Tomé", 12, 4},       {"Luís", 16, 24},       {"Custódio", 8, 22},
    {"Bernardo", 8, 20},  {"Diogo", 16, 3},     {"Jorge", 10, 2},      {"Salvador", 10, 2},    {"Gregório", 10, 3},
    {"Jacinto", 5, 9},    {"Caetano", 2, 14},   {"Joaquim", 1, 38},    {"Inácio", 4, 9},       {"Amaro", 6, 3},
    {"Marcos", 6, 3},     {"Lourenço", 8, 6},   {"André", 14, 5},      {"Estêvão", 5, 2},      {"Silvestre", 3, 2},
    {"Agostinho", 4, 6},  {"Bartolomeu", 6, 2}, {"Rafael", 1, 3},      {"Vicente", 4, 4},      {"Torcato", 3, 3},
    {"Ventura", 1, 3},    {"Teotónio", 1, 2}};
constexpr Frequency women[]{
    {"Maria", 250, 300},   {"Ana", 95, 110},     {"Isabel", 110, 30}, {"Catarina", 100, 28}, {"Margarida", 50, 18},
    {"Francisca", 55, 40}, {"Domingas", 55, 14}, {"Antónia", 35, 38}, {"Jerónima", 30, 8},   {"Senhorinha", 22, 6},
    {"Madalena", 18, 3},   {"Joana", 22, 26},    {"Marta", 12, 4},    {"Luísa", 14, 28},     {"Serafina", 10, 6},
    {"Custódia", 9, 26},   {"Josefa", 6, 62},    {"Teresa", 4, 58},   {"Rosa", 1, 52},       {"Mariana", 10, 30},
    {"Ângela", 10, 6},     {"Paula", 10, 5},     {"Inês", 12, 3},     {"Águeda", 8, 3},      {"Benta", 8, 8},
    {"Apolónia", 6, 2},    {"Helena", 6, 2},     {"Beatriz", 8, 1},   {"Grácia", 10, 1},     {"Violante", 4, 1},
    {"Jacinta", 4, 10},    {"Bernarda", 4, 9},   {"Joaquina", 1, 30}, {"Clara", 4, 7},       {"Engrácia", 2, 5},
    {"Eugénia", 2, 4},     {"Úrsula", 5, 2},     {"Leonor", 5, 2},    {"Caetana", 1, 6},     {"Rita", 1, 14}};
// The first ones are the most frequent: the share falls with the rank.
constexpr const char* families[]{
    "Gonçalves",  "Fernandes", "da Silva",    "Pereira",   "Ribeiro",   "Martins",  "de Sousa",  "da Costa",
    "Rodrigues",  "Ferreira",  "de Oliveira", "Lopes",     "Pires",     "Álvares",  "Francisco", "Gomes",
    "Mendes",     "Dias",      "Antunes",     "de Araújo", "Marques",   "Carvalho", "Machado",   "Leite",
    "de Freitas", "Vieira",    "de Abreu",    "Salgado",   "de Castro", "Peixoto",  "Vaz",       "da Cunha",
    "Teixeira",   "de Faria",  "Novais",      "do Vale",   "de Matos",  "Barbosa",  "Correia",   "Coelho",
    "da Mota",    "de Macedo", "Guimarães",   "Lobo",      "Pinto",     "Cardoso",  "Nogueira",  "Soares",
    "Barros",     "Fontes",    "Moreira",     "Nunes",     "Magalhães", "Simões",   "Sampaio",   "Afonso",
    "da Rocha",   "Jorge",     "Domingues",   "da Fonseca"};
constexpr const char* devotions[]{
    "de Jesus",  "da Conceição",   "do Espírito Santo", "da Assunção",   "do Rosário",    "de São José", "da Cruz",
    "dos Anjos", "da Purificação", "do Sacramento",     "da Encarnação", "do Nascimento", "dos Santos",  "Rosa"};
constexpr const char* secondMen[]{"José", "José", "José", "António", "Manuel", "Joaquim", "Luís", "Caetano", "Bento"};
constexpr const char* secondWomen[]{"Josefa", "Josefa",   "Maria", "Teresa",   "Teresa",   "Rosa",    "Rosa",
                                    "Luísa",  "Joaquina", "Clara", "Angélica", "Bernarda", "Quitéria"};
constexpr std::pair<const char*, const char*> patronymics[]{
    {"Gonçalo", "Gonçalves"}, {"Fernando", "Fernandes"},  {"Domingos", "Domingues"}, {"Pedro", "Pires"},
    {"João", "Anes"},         {"Francisco", "Francisco"}, {"António", "Antunes"},    {"Diogo", "Dias"},
    {"Simão", "Simões"},      {"Marcos", "Marques"},      {"Jorge", "Jorge"}};
constexpr std::pair<const char*, const char*> pairsOfNames[]{
    {"João", "Joana"},       {"Francisco", "Francisca"}, {"Domingos", "Domingas"}, {"António", "Antónia"},
    {"José", "Josefa"},      {"Jerónimo", "Jerónima"},   {"Custódio", "Custódia"}, {"Bernardo", "Bernarda"},
    {"Luís", "Luísa"},       {"Bento", "Benta"},         {"Paulo", "Paula"},       {"Caetano", "Caetana"},
    {"Joaquim", "Joaquina"}, {"Jacinto", "Jacinta"}};

constexpr int turnFrom = 1700, turnUntil = 1760; // when the fashion of names turns

template <std::size_t Count>
QString drawn(demo::Random& random, const Frequency (&all)[Count], int year)
{
    const int late = std::clamp(year, turnFrom, turnUntil) - turnFrom;
    const int early = turnUntil - turnFrom - late;
    const auto weight = [&](const Frequency& one) { return one.early * early + one.late * late; };
    const int sum = std::accumulate(std::begin(all), std::end(all), 0,
                                    [&](int before, const Frequency& one) { return before + weight(one); });
    int left = random.between(1, sum);
    for (const Frequency& one : all) {
        left -= weight(one);
        if (left <= 0) return QString::fromUtf8(one.name);
    }
    return QString::fromUtf8(all[0].name);
}

template <std::size_t Count>
QString picked(demo::Random& random, const char* const (&all)[Count])
{
    return QString::fromUtf8(all[random.between(0, static_cast<int>(Count) - 1)]);
}

} // namespace

QString Name::full() const
{
    QStringList words{given};
    if (!second.isEmpty()) words << second;
    return (words + surnames).join(' ');
}

QString givenName(demo::Random& random, bool male, int year)
{
    return male ? drawn(random, men, year) : drawn(random, women, year);
}

QString secondName(demo::Random& random, bool male, const QString& given, int year)
{
    const int percent = 2 + std::clamp(year - turnFrom, 0, 80) / 2;
    if (!random.chance(percent)) return {};
    const QString second = male ? picked(random, secondMen) : picked(random, secondWomen);
    return second == given ? QString() : second;
}

QString familyName(demo::Random& random)
{
    constexpr int last = static_cast<int>(std::size(families)) - 1;
    return QString::fromUtf8(families[std::min(random.between(0, last), random.between(0, last))]);
}

QString devotion(demo::Random& random)
{
    return picked(random, devotions);
}

bool isDevotion(const QString& surname)
{
    return std::ranges::any_of(devotions, [&](const char* one) { return surname == QString::fromUtf8(one); });
}

QString patronymic(const QString& given)
{
    for (const auto& [name, surname] : patronymics)
        if (given == QString::fromUtf8(name)) return QString::fromUtf8(surname);
    return {};
}

QString forSex(const QString& given, bool male)
{
    for (const auto& [man, woman] : pairsOfNames)
        if (given == QString::fromUtf8(male ? woman : man)) return QString::fromUtf8(male ? man : woman);
    return given;
}

Spellings::Spellings(const QString& table)
{
    QFile file(table);
    if (!file.open(QIODevice::ReadOnly)) qFatal("%s can't be read", qPrintable(table));
    const QStringList lines = QString::fromUtf8(file.readAll()).split('\n', Qt::SkipEmptyParts);
    for (const QString& line : lines) {
        const QStringList fields = line.trimmed().split(';');
        if (fields.size() >= 4 && fields[3] != "tipo" && fields[0] != fields[1]) forms_[fields[1]] << fields[0];
    }
}

// Abbreviations are mostly written out by who transcribes.
QString Spellings::old(const QString& word, demo::Random& random) const
{
    const auto found = forms_.constFind(word);
    if (found == forms_.cend()) return word;
    const QString form = random.pick(*found);
    const bool isShort = form.size() + 2 < word.size() || form.contains('.');
    return isShort && !random.chance(15) ? word : form;
}

QString Spellings::misread(const QString& word, demo::Random& random)
{
    if (word.size() < 4) return word;
    static constexpr std::pair<char16_t, char16_t> alike[]{{u'e', u'i'}, {u'o', u'u'}, {u's', u'z'}, {u'n', u'u'},
                                                           {u'l', u'b'}, {u'r', u's'}, {u'a', u'o'}, {u'm', u'n'}};
    const int at = random.between(1, static_cast<int>(word.size()) - 2);
    QString other = word;
    for (const auto& [one, two] : alike)
        if (word[at] == QChar(one) || word[at] == QChar(two)) {
            other[at] = word[at] == QChar(one) ? QChar(two) : QChar(one);
            return other;
        }
    return random.chance(50) ? other.remove(at, 1) : other.insert(at, word[at]);
}

} // namespace truth
