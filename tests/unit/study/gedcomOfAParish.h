// A parish of a few people, and what is written of it as GEDCOM.
#pragma once

#include "study/gedcomGrammar.h"
#include "study/people.h"

#include "study/exchange/gedcom.h"

#include <QBuffer>

namespace gedcom {

class OfAParish : public People
{
protected:
    OfAParish()
    {
        options_.version = study::exchange::GedcomVersion::V70;
        options_.today = QDate(2026, 1, 1);
        run("insert into infopar (cod, nome, pais) values ('010102', 'Aguada de Baixo', 'PT')");
        run("insert into infocomplementar (categoria, codigo, descricao) values ('Filia', '6', 'Exposto'), "
            "('Paren', '19', 'Tio paterno'), ('SitFa', '6', 'União não matrimonial'), ('FunPa', '9', 'Vigário'), "
            "('EstCi', '3', 'Viúvo'), ('TipMi', '1', 'Rezada')");
        person({"Rui Dias", 'm', "1720-05-04"});
        person({"Ana da Silva", 'f', "1722-01-01"});
        family_ = couple(1, 2, "1745-01-01");
        child_ = person({"Eva Dias", 'f', "1750-03-10", "1790-06-07", family_}); // 3
    }
    void assists(qint64 entity, qint64 who, char act, char as)
    {
        run("insert into assistente (tipoacto, entidade, dataref, nind, tipoassistente, parentbapt) "
            "values (?, ?, '1750-03-10', ?, ?, 19)",
            {QString(QChar(act)), entity, who, QString(QChar(as))});
    }
    QByteArray written()
    {
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        counts_ = study::exchange::writeGedcom(bdp, buffer, options_);
        return buffer.data();
    }
    // Sound by the grammar.
    File file()
    {
        const bool is551 = options_.version == study::exchange::GedcomVersion::V551;
        File all = read(written(), is551);
        const QStringList problems = problemsOf(all, is551);
        EXPECT_TRUE(problems.isEmpty()) << qPrintable(problems.join('\n'));
        return all;
    }
    Structure record(const char* xref)
    {
        const File all = file();
        const Structure* const found = all.record(xref);
        EXPECT_TRUE(found) << xref;
        return found ? *found : Structure();
    }
    static Structure below(const Structure& above, const char* tag)
    {
        const Structure* const found = above.first(tag);
        EXPECT_TRUE(found) << tag;
        return found ? *found : Structure();
    }
    static QString factOf(const Structure& record, const char* type, const char* tag = "FACT")
    {
        for (const Structure& fact : record.all(tag))
            if (fact.text("TYPE") == type) return fact.value;
        return {};
    }

    study::exchange::GedcomOptions options_;
    study::exchange::GedcomCounts counts_;
    qint64 family_ = 0, child_ = 0;
};

} // namespace gedcom
