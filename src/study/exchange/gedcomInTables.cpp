#include "study/exchange/gedcomInTables.h"

#include "study/acts/catalogue.h"
#include "study/parish/codes.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>

namespace study::exchange {

namespace {

constexpr std::array<FactColumn, 4> facts = {{{"Filiação", "filiacao", "Filia"},
                                              {"Estado civil ao óbito", "estadoobito", "EstCi"},
                                              {"Sacramentos", "sacramentos", "Sacra"},
                                              {"Classe paroquial", "classparoquial", "ClaPa"}}};

struct RoleWord
{
    const char* word; // as plainWords() gives it
    Role role;
    bool isGodparent = false;
};
constexpr std::array<RoleWord, 27> roleWords = {{{"godp", Role::Godparent, true},
                                                 {"godparent", Role::Godparent, true},
                                                 {"godfather", Role::Godparent, true},
                                                 {"godmother", Role::Godparent, true},
                                                 {"padrinho", Role::Godparent, true},
                                                 {"madrinha", Role::Godparent, true},
                                                 {"padrinho ou madrinha", Role::Godparent, true},
                                                 {"witn", Role::Witness},
                                                 {"witness", Role::Witness},
                                                 {"testemunha", Role::Witness},
                                                 {"clergy", Role::Clergy},
                                                 {"officiator", Role::Clergy},
                                                 {"officiant", Role::Clergy},
                                                 {"priest", Role::Clergy},
                                                 {"minister", Role::Clergy},
                                                 {"padre", Role::Clergy},
                                                 {"paroco", Role::Clergy},
                                                 {"celebrante", Role::Clergy},
                                                 {"executor", Role::Executor},
                                                 {"testamenteiro", Role::Executor},
                                                 {"heir", Role::Heir},
                                                 {"herdeiro", Role::Heir},
                                                 {"herdeira", Role::Heir},
                                                 {"best man", Role::Witness},
                                                 {"maid of honor", Role::Witness},
                                                 {"sponsor", Role::Godparent, true},
                                                 {"testamenteira", Role::Executor}}};

struct ActWord
{
    const char* words;
    ActTold act;
};
constexpr std::array<ActWord, 3> actWords = {
    {{" do baptismo", ActTold::Baptism}, {" do enterro", ActTold::Burial}, {" no testamento", ActTold::Will}}};

constexpr std::array<const char*, 9> technical = {"UID", "_UID", "CHAN", "CREA", "RIN", "SUBM", "ANCI", "DESI", "_UPD"};

struct PlaceWord
{
    const char* word; // as plainWords() gives it
    int level;
};
constexpr int site = 0, locality = 1, parish = 2, municipality = 3, district = 4, country = 5;
constexpr std::array<PlaceWord, 20> placeWords = {{{"sitio", site},
                                                   {"lugar", locality},
                                                   {"localidade", locality},
                                                   {"aldeia", locality},
                                                   {"place", locality},
                                                   {"village", locality},
                                                   {"locality", locality},
                                                   {"freguesia", parish},
                                                   {"paroquia", parish},
                                                   {"parish", parish},
                                                   {"concelho", municipality},
                                                   {"municipio", municipality},
                                                   {"municipality", municipality},
                                                   {"distrito", district},
                                                   {"district", district},
                                                   {"ilha", district},
                                                   {"pais", country},
                                                   {"country", country},
                                                   {"nacao", country},
                                                   {"zona", district}}};

} // namespace

const FactColumn* factColumnOf(const QString& type)
{
    const auto* const found =
        std::ranges::find_if(facts, [&](const FactColumn& one) { return type == QString::fromUtf8(one.type); });
    return found == facts.end() ? nullptr : found;
}

const std::vector<LabelColumn>& labelsOfBaptism()
{
    static const std::vector<LabelColumn> all{
        {"Idade do pai", "idadepai", LabelKind::Number},
        {"Idade da mãe", "idademae", LabelKind::Number},
        {"Estado civil do pai", "estadocivilpai", LabelKind::Code, "EstCi"},
        {"Estado civil da mãe", "estadocivilmae", LabelKind::Code, "EstCi"},
    };
    return all;
}

const std::vector<LabelColumn>& labelsOfBurial()
{
    static const std::vector<LabelColumn> all{
        {"Igreja", "igreja", LabelKind::Text},
        {"Enterro", "enterro", LabelKind::Text},
        {"Mortalha", "mortalha", LabelKind::Text},
    };
    return all;
}

const std::vector<LabelColumn>& labelsOfLooks()
{
    static const std::vector<LabelColumn> all{
        {"Estatura", "estatura", LabelKind::Text},
        {"Altura", "altura", LabelKind::Number},
    };
    return all;
}

const std::vector<LabelColumn>& labelsOfAssistant()
{
    static const std::vector<LabelColumn> all{
        {"Parentesco", "parentbapt", LabelKind::Code, "Paren"},
        {"Parentesco com o noivo", "parentnoivo", LabelKind::Code, "Paren"},
        {"Parentesco com a noiva", "parentnoiva", LabelKind::Code, "Paren"},
        {"Estado civil", "estadocivil", LabelKind::Code, "EstCi"},
    };
    return all;
}

const std::vector<LabelColumn>& labelsOfBequest()
{
    static const std::vector<LabelColumn> all{
        {"Parentesco", "parentesco", LabelKind::Code, "Paren"},
        {"Bens móveis", "bensmoveis", LabelKind::Text},
        {"Bens de raiz", "bensraiz", LabelKind::Text},
        {"Notas", "obs", LabelKind::Text},
    };
    return all;
}

const std::vector<LabelColumn>& labelsOfSignature()
{
    static const std::vector<LabelColumn> all{
        {"Assina como", "assina", LabelKind::Text},
        {"Função", "funcao", LabelKind::Text},
    };
    return all;
}

std::optional<RoleTold> roleTold(const QString& role, const QString& phrase)
{
    const auto meant = [](const QString& text) {
        const QString plain = plainWords(text);
        return std::ranges::find_if(roleWords, [&](const RoleWord& one) { return plain == QLatin1String(one.word); });
    };
    const auto* const byPhrase = meant(phrase);
    const auto* const byRole = meant(role);
    if (byRole == roleWords.end() && byPhrase == roleWords.end()) return {};
    const RoleWord& word = byRole == roleWords.end() ? *byPhrase : *byRole;
    return RoleTold{word.role, word.isGodparent || (byPhrase != roleWords.end() && byPhrase->isGodparent)};
}

PhraseOfAct phraseOfAct(const QString& line)
{
    static const QRegularExpression ofMarriage(R"(^(.*) do casamento da família (\d{1,15})$)");
    if (const auto match = ofMarriage.match(line); match.hasMatch())
        return {ActTold::Marriage, match.captured(1), match.captured(2).toLongLong()};
    for (const ActWord& one : actWords)
        if (line.endsWith(QLatin1String(one.words)))
            return {one.act, line.chopped(static_cast<qsizetype>(qstrlen(one.words)))};
    return {};
}

int filiationOf(const QString& pedigree)
{
    return pedigree.compare("adopted", Qt::CaseInsensitive) == 0 ? parish::filiation::adopted : 0;
}

bool isTechnical(const QString& tag)
{
    return std::ranges::any_of(technical, [&](const char* one) { return tag == QLatin1String(one); });
}

int levelOfWord(const QString& word)
{
    const QString plain = plainWords(word);
    const auto* const found =
        std::ranges::find_if(placeWords, [&](const PlaceWord& one) { return plain == QLatin1String(one.word); });
    return found == placeWords.end() ? -1 : found->level;
}

} // namespace study::exchange
