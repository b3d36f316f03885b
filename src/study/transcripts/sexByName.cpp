#include "study/transcripts/sexByName.h"

#include "study/names/names.h"
#include "study/transcripts/kleioText.h"

#include <QHash>
#include <QSet>

namespace study {

namespace {

// Given names, in small letters without accents, whose last letter doesn't tell the sex or tells the other one.
const QSet<QString>& men()
{
    static const QSet<QString> names{
        "abel",     "agostim",  "amador",    "andre",     "boaventura", "ventura",  "anibal",  "baltasar", "baltazar",
        "baptista", "belchior", "bras",      "carlos",    "clemente",   "cosme",    "crispim", "daniel",   "david",
        "dinis",    "diniz",    "domingos",  "duarte",    "elias",      "felipe",   "felix",   "filipe",   "gabriel",
        "garcia",   "gaspar",   "gil",       "guilherme", "heitor",     "henrique", "isaias",  "ismael",   "jeremias",
        "joaquim",  "jonas",    "jorge",     "josafate",  "jose",       "josue",    "leonel",  "lucas",    "luis",
        "luiz",     "manuel",   "marcal",    "marcos",    "martim",     "mateus",   "matheus", "matias",   "melchior",
        "miguel",   "moises",   "nicolau",   "onofre",    "quintim",    "rafael",   "rui",     "ruy",      "salvador",
        "samuel",   "serafim",  "silvestre", "tomas",     "tome",       "valentim", "vicente", "xavier",   "zacarias"};
    return names;
}

const QSet<QString>& women()
{
    static const QSet<QString> names{
        "amparo",    "anunciacao",   "ascensao", "carmo",    "livramento", "patrocinio", "socorro",
        "visitacao", "apresentacao", "assuncao", "beatriz",  "brites",     "conceicao",  "consolacao",
        "dores",     "encarnacao",   "ester",    "guiomar",  "ines",       "iris",       "isabel",
        "izabel",    "leonor",       "luz",      "mercedes", "merces",     "natividade", "neves",
        "piedade",   "purificacao",  "raquel",   "rosario",  "trindade"};
    return names;
}

QString firstWord(const NameParts& parts)
{
    for (const NameParts::Word& word : parts.words)
        if (!word.particle) return word.readings.size() == 1 ? word.readings.first().standard : QString();
    return {};
}

} // namespace

std::optional<Sex> sexCalled(const QString& word)
{
    static const QHash<QString, Sex> words{
        {"m", Sex::Male},         {"masc", Sex::Male},       {"masculino", Sex::Male}, {"h", Sex::Male},
        {"homem", Sex::Male},     {"varao", Sex::Male},      {"macho", Sex::Male},     {"menino", Sex::Male},
        {"rapaz", Sex::Male},     {"moco", Sex::Male},       {"filho", Sex::Male},     {"f", Sex::Female},
        {"fem", Sex::Female},     {"feminino", Sex::Female}, {"mulher", Sex::Female},  {"femea", Sex::Female},
        {"menina", Sex::Female},  {"rapariga", Sex::Female}, {"moca", Sex::Female},    {"filha", Sex::Female},
        {"masculina", Sex::Male}, {"feminina", Sex::Female}, {"d", Sex::Unknown},      {"i", Sex::Unknown}};
    QString plain = kleio::folded(word.trimmed());
    if (plain.endsWith('.')) plain.chop(1);
    const auto found = words.constFind(plain);
    return found == words.constEnd() ? std::nullopt : std::optional(*found);
}

Sex sexByName(const QString& name)
{
    const QString word = kleio::folded(firstWord(partsOf(name)));
    if (men().contains(word)) return Sex::Male;
    if (women().contains(word)) return Sex::Female;
    if (word.endsWith('a')) return Sex::Female;
    return word.endsWith('o') ? Sex::Male : Sex::Unknown;
}

} // namespace study
