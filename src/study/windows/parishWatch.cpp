#include "study/windows/parishWatch.h"

#include <algorithm>
#include <utility>

namespace study {

namespace {

const QStringList& tablesOfParish()
{
    static const QStringList tables{
        "individuo",  "familia",         "familias",     "assistente",   "residencia",       "profissoes",
        "assinatura", "legadosprofanos", "rituaismorte", "passaporte",   "infocomplementar", "profissao",
        "pais",       "zonapais",        "distrito",     "concelho",     "paroquia",         "lugar",
        "sitio",      "infopar",         "estudo_acto",  "estudo_pessoa"};
    return tables;
}

} // namespace

ParishWatch::ParishWatch(const jet::Connection& bdp, const QStringList& others)
    : follower_(bdp, tablesOfParish() + others)
{
}

void ParishWatch::begin()
{
    follower_.touched();
    begun_ = true;
    changed_ = again_ = false;
}

bool ParishWatch::hasChanged()
{
    look();
    return changed_;
}

bool ParishWatch::hasChangedAgain()
{
    look();
    return std::exchange(again_, false);
}

void ParishWatch::look()
{
    if (!begun_) return;
    try {
        const auto touched = follower_.touched();
        if (touched && std::ranges::all_of(*touched, [](const auto& rows) { return rows.empty(); })) return;
        changed_ = again_ = true;
    } catch (const jet::Error&) { // it is asked again
    }
}

void ParishWatch::passOver()
{
    try {
        follower_.touched();
    } catch (const jet::Error&) { // it is told as a change then, which does no harm
    }
}

} // namespace study
