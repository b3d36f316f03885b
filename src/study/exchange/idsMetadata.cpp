// METADATA: what types, relations and values mean, and what programs choose otherwise.
#include "study/exchange/ids_p.h"

namespace study::exchange {

namespace {

constexpr auto definition = "Definition", relation = "Relation";

} // namespace

void IdsWriter::writeMeaning(const char* table, QByteArrayView type, const QString& value, const char* source,
                             const QString& explanation)
{
    file_->begin();
    file_->add(type);
    file_->add(value);
    file_->add(source);
    file_->add(table);
    file_->addNothing();
    file_->add(explanation);
    file_->end();
}

void IdsWriter::writeMetadata()
{
    begin(IdsTable::Metadata);
    for (const Convention& one : conventions(options_.reversedRelations, options_.upperCase, options_.childrenAtHome))
        writeMeaning(one.table, one.type, one.value, "", one.explanation);
    if (options_.limitYears > 0)
        writeMeaning("", "Privacy", definition, "",
                     QString("People who may be alive are left out: %1 (born less than %2 years ago, without a death)")
                         .arg(counts_.withheldPeople)
                         .arg(options_.limitYears));
    const ToldWords* before = nullptr;
    for (const ToldWords& one : allTold()) {
        const bool isOfTheSameType = before && before->table == one.table && qstrcmp(before->type, one.type) == 0;
        before = &one;
        if (isOfTheSameType) continue;
        const char* const table = wordsOf(one.table).name;
        writeMeaning(table, typeOf(one), definition, one.source, one.explanation);
        const Meanings& values = *meanings_[static_cast<std::size_t>(one.told)];
        for (auto value = values.begin(); value != values.end(); ++value)
            writeMeaning(table, typeOf(one), value.key(), one.source, value->join("; "));
    }
    QSet<QString> told;
    const auto writeOnce = [&](IdsTable table, const char* word, const char* source, const char* explanation) {
        const QString key = QString(wordsOf(table).name) + ' ' + word;
        if (told.contains(key)) return;
        told.insert(key);
        writeMeaning(wordsOf(table).name, relation, word, source, explanation);
    };
    for (const TieWords& one : allTies())
        for (const char* const word :
             {one.male, one.female, one.unknown, one.otherMale, one.otherFemale, one.otherUnknown})
            writeOnce(IdsTable::IndivIndiv, word, one.source, one.explanation);
    for (const ContextRole* const one : allContextRoles())
        writeOnce(IdsTable::IndivContext, one->relation, one->source, one->explanation);
    for (const QString& one : placeRelations_)
        writeOnce(IdsTable::ContextContext, one.toUtf8().constData(), "tables of places", "Where the place lies");
    finish();
}

} // namespace study::exchange
