// A parish of a test with those who assist at its acts.
#pragma once

#include "study/checked.h"

class CheckedActs : public Checked
{
protected:
    void assists(const char* kind, qint64 entity, const char* day, qint64 who, const char* as = "p")
    {
        run("insert into assistente (tipoacto, entidade, dataref, nind, tipoassistente) values (?, ?, ?, ?, ?)",
            {kind, entity, *day ? QVariant(QString(day)) : QVariant(), who, as});
    }
    void marriesExactly(qint64 husband, qint64 wife, const char* day)
    {
        run("update familia set dcasamfixa = 1 where nfamilia = ?", {couple(husband, wife, day)});
    }
    void names(const char* category, int code, const char* description)
    {
        run("insert into infocomplementar (categoria, codigo, descricao) values (?, ?, ?)",
            {category, QString::number(code), QString::fromUtf8(description)});
    }
};
