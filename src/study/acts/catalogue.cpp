#include "study/acts/catalogue.h"

#include "common/marca.h"
#include "platform/jet/recordset.h"
#include "study/names/fold.h"

namespace study {

// With their accents, which alone tell "Avô" from "Avó"; without, where no other is so.
const Catalogue::Codes& Catalogue::codes(const QString& category)
{
    if (const auto known = codes_.constFind(category); known != codes_.constEnd()) return *known;
    Codes codes, plain;
    for (jet::Recordset row(
             bdp_, jet::NativeSql("select codigo, descricao from infocomplementar where categoria = ?", {category}));
         !row.eof(); row.moveNext())
    {
        bool number = false;
        const int code = row["codigo"].toString().toInt(&number);
        const QString words = fold::small(semMarca(row["descricao"].toString())).simplified();
        if (!number || words.isEmpty()) continue;
        if (!codes.contains(words)) codes.insert(words, code);
        if (!plain.contains(plainWords(words))) plain.insert(plainWords(words), code);
    }
    plain.insert(codes);
    return *codes_.insert(category, plain);
}

std::optional<int> Catalogue::codeOf(const QString& category, const QString& description)
{
    const Codes& known = codes(category);
    for (const QString& words : {fold::small(description).simplified(), plainWords(description)})
        if (const auto code = known.constFind(words); code != known.constEnd()) return *code;
    return {};
}

std::optional<int> Catalogue::codeFor(const QString& category, const QString& text)
{
    if (plainWords(text).isEmpty()) return {};
    if (const auto code = codeOf(category, text)) return code;
    const auto meant = category == "Sacra" ? sacramentsMeant(text) : meaningOf(category, text);
    return meant ? codeOf(category, *meant) : std::optional<int>();
}

} // namespace study
