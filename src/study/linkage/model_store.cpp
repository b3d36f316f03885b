// The model in the BDP: `estudo_peso` (docs/bdp.md).
#include "platform/jet/connection.h"
#include "platform/jet/nativesql.h"
#include "platform/jet/rows.h"
#include "platform/jet/transaction.h"
#include "study/linkage/model.h"
#include "study/linkage/ownTables.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace study::linkage {

namespace {

// What stands in the column `campo`: names that stay when the titles of the screen change.
constexpr std::array<const char*, fieldCount> fieldWords{
    "nome",         "outros",    "outros_mulher",    "apelido_pais", "pai",        "pai_apelidos", "mae",
    "mae_apelidos", "conjuge",   "conjuge_apelidos", "avos",         "nascimento", "epoca",        "obito",
    "casamento",    "unioes",    "tempo_casal",      "lugar",        "freguesia",  "profissao",    "alcunha",
    "titulo",       "padrinhos", "mesma_origem",     "mesmo"};
constexpr std::array<const char*, levelCount> levelWords{"falta", "igual",  "classe", "parecido", "devocao",
                                                         "1_ano", "3_anos", "5_anos", "10_anos",  "20_anos",
                                                         "dia",   "dias",   "outro"};

// The limits stand among the weights, under a field of their own: the value in `m`.
constexpr auto limitWord = "limite";
using Limit = std::pair<const char*, double Model::*>;
constexpr Limit limitWords[]{{"propor", &Model::suggestFrom},
                             {"propor_casais", &Model::suggestCouplesFrom},
                             {"acima", &Model::aboveRunnerUp},
                             {"esconder", &Model::hideBelow}};
constexpr auto candidatesWord = "candidatos";
constexpr double mostCandidates = 100;

constexpr auto isThere = "select count(*) from sqlite_master where type = 'table' and name = 'estudo_peso'";

bool hasTable(const jet::Connection& bdp)
{
    jet::Rows rows(bdp, jet::NativeSql(isThere));
    return rows.next() && rows.number(0) > 0;
}

bool isProbability(double value)
{
    return value > 0 && value <= 1;
}

void take(Model& model, const QString& field, const QString& level, double m, double u)
{
    if (field == limitWord) {
        for (const auto& [word, limit] : limitWords)
            if (level == word && std::isfinite(m)) model.*limit = m;
        if (level == candidatesWord && m >= 1 && m <= mostCandidates) model.candidates = int(m);
        return;
    }
    if (!isProbability(m) || !isProbability(u)) return;
    for (Weight& weight : model.weights)
        if (field == fieldWords[size_t(weight.field)] && level == levelWords[size_t(weight.level)]) {
            weight.m = m;
            weight.u = u;
        }
}

} // namespace

std::optional<Model> storedModel(jet::Connection& bdp)
{
    if (!hasTable(bdp)) return {};
    Model model = startModel();
    for (jet::Rows rows(bdp, jet::NativeSql("select campo, nivel, m, u from estudo_peso")); rows.next();)
        take(model, rows.text(0), rows.text(1), rows.real(2), rows.real(3));
    return model;
}

void store(jet::Connection& bdp, const Model& model)
{
    jet::Transaction transaction(bdp);
    if (!hasTable(bdp)) bdp.execute(jet::NativeSql(weightTable));
    bdp.execute(jet::NativeSql("delete from estudo_peso"));
    const jet::NativeSql insert("insert into estudo_peso (campo, nivel, m, u) values (?, ?, ?, ?)");
    jet::Repeated put(bdp, insert);
    for (const Weight& weight : model.weights)
        put.run({fieldWords[size_t(weight.field)], levelWords[size_t(weight.level)], weight.m, weight.u});
    for (const auto& [word, limit] : limitWords)
        put.run({limitWord, word, model.*limit, 1.0});
    put.run({limitWord, candidatesWord, double(model.candidates), 1.0});
    transaction.commit();
}

} // namespace study::linkage
