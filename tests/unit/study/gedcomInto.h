// A small BDP with the places of one parish, and files of GEDCOM that are read into it.
#pragma once

#include "study/people.h"

#include "study/exchange/gedcomIn.h"

#include <QFile>

class GedcomInto : public People
{
protected:
    GedcomInto()
    {
        run("insert into pais (codpais, nomepais) values ('PT', 'Portugal')");
        run("insert into distrito (coddistrito, nomedistrito, codpais) values ('01', 'Aveiro', 'PT')");
        run("insert into concelho (codconcelho, nomeconcelho, coddistrito) values ('0101', 'Águeda', '01')");
        run("insert into paroquia (codparoquia, nomeparoquia, codconcelho) values ('010101', 'Borralha', '0101'), "
            "('010102', 'Fermentelos', '0101')");
        run("insert into lugar (codlugar, nomelugar, codparoquia) values ('01010101', 'Outeiro', '010101'), "
            "('01010201', 'Outeiro', '010102')");
        run("insert into infopar (cod, nome, pais) values ('010101', 'Borralha', 'PT')");
        run("insert into infocomplementar (categoria, codigo, descricao) values ('EstCi', '1', 'Solteiro'), "
            "('Paren', '19', 'Tio paterno'), ('FunPa', '9', 'Vigário'), ('Filia', '1', 'Legítimo')");
        run("insert into profissao (codprof, profissao) values (4, 'Lavrador')");
    }
    QString file(const QByteArray& records, const char* version, const char* head) const
    {
        QFile made(folder.filePath("a.ged"));
        made.open(QIODevice::WriteOnly);
        made.write(QByteArray("0 HEAD\n1 GEDC\n2 VERS ") + version + "\n" + head + records + "0 TRLR\n");
        return made.fileName();
    }
    study::exchange::GedcomReport read(const QByteArray& records, const char* version = "7.0", const char* head = "")
    {
        return study::exchange::importGedcom(bdp, file(records, version, head), {.copyBefore = false});
    }
    std::string value(const char* select, const QVariantList& values = {})
    {
        const jet::Recordset row(bdp, jet::NativeSql(select, values));
        if (row.eof()) return "-";
        QStringList all;
        for (int column = 0; column < row.fieldCount(); ++column)
            all << (row[column].isNull() ? QString("null") : row[column].toString());
        return all.join('|').toStdString();
    }
    std::string notes(int person = 1) { return value("select obs from individuo where nind = ?", {person}); }
    static QByteArray person(const QByteArray& lines) { return "0 @I1@ INDI\n" + lines; }
};
