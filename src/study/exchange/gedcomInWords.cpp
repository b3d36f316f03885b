#include "study/exchange/gedcomInWords.h"

#include "common/marca.h"

namespace study::exchange {

namespace {

QString keyOf(const QString& name)
{
    return semMarca(name).simplified().toCaseFolded();
}

} // namespace

GedcomWords::GedcomWords(jet::Connection& bdp, GedcomRows& rows, bool makesNew) : rows_(rows), makesNew_(makesNew)
{
    jet::Rows codes(bdp, jet::NativeSql("select categoria, codigo, descricao from infocomplementar "
                                        "order by categoria, length(codigo), codigo"));
    while (codes.next())
        if (const QString key = codes.text(0) + '|' + keyOf(codes.text(2)); !codes_.contains(key))
            codes_.insert(key, codes.text(1));
    jet::Rows professions(bdp, jet::NativeSql("select codprof, profissao from profissao order by codprof"));
    while (professions.next()) {
        lastProfession_ = qMax(lastProfession_, professions.number(0));
        if (const QString key = keyOf(professions.text(1)); !professions_.contains(key))
            professions_.insert(key, professions.number(0));
    }
}

std::optional<QString> GedcomWords::code(const QString& category, const QString& description) const
{
    const auto found = codes_.constFind(category + '|' + keyOf(description));
    return found == codes_.constEnd() ? std::nullopt : std::optional(*found);
}

std::optional<qint64> GedcomWords::profession(const QString& name)
{
    const QString shown = semMarca(name).simplified(), key = keyOf(name);
    if (shown.isEmpty() || shown.size() > longestName) return {};
    if (const auto found = professions_.constFind(key); found != professions_.constEnd()) return *found;
    if (!makesNew_) return {};
    rows_.add("profissao", {{"codprof", ++lastProfession_}, {"profissao", comMarca(shown)}, {"obs", QString("")}});
    professions_.insert(key, lastProfession_);
    return lastProfession_;
}

} // namespace study::exchange
