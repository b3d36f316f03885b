#include "study/exchange/gedcomPeople_p.h"

namespace study::exchange {

const char* const peopleSelect =
    "select i.nind, i.nome, i.titulo, i.alcunha, i.sexo, i.datanasc, i.DnascFixa, i.localnasc, i.tipolocalnasc, "
    "i.dataobito, i.dobitofixa, i.localobito, i.tipolocalobito, i.inicioobs, i.fimobs, i.famorig, o.nfamilia, "
    "i.filiacao, i.idadepai, i.idademae, i.estadocivilpai, i.estadocivilmae, i.idadeobito, i.estadoobito, "
    "i.sacramentos, i.classparoquial, i.altura, i.menor, i.testam, i.escrit, "
    "i.causa, i.mortalha, i.igreja, i.enterro, i.estatura, i.cFisicas, i.obs, i.rpBapt, i.rpObi, "
    "i.testamenteiro, e.nind, i.primpadrebapt, b.nind, i.segpadrebapt, c.nind, i.primpadreobito, d.nind, "
    "i.funcprimpbapt, i.funcsegpbapt, i.funcprimpobito "
    "from individuo i left join familia o on o.nfamilia = i.famorig "
    "left join individuo e on e.nind = i.testamenteiro left join individuo b on b.nind = i.primpadrebapt "
    "left join individuo c on c.nind = i.segpadrebapt left join individuo d on d.nind = i.primpadreobito "
    "order by i.nind";

const char* const assistantColumns = "s.nind, a.nind, a.sexo, s.tipoassistente, s.estadocivil, s.falecidopai, "
                                     "s.falecidomae, s.parentbapt, s.parentnoivo, s.parentnoiva, s.obs, s.dataref";

namespace {

QString godparentsSelect()
{
    return QString("select s.entidade, %1 from assistente s left join individuo a on a.nind = s.nind "
                   "where s.tipoacto = 'b' order by s.entidade, s.dataref, s.nind, s.rowid")
        .arg(assistantColumns);
}

// A number and a condition by which 7.0 has nobody: it tells of marriages in the families themselves.
QString onlyIn551(const QString& select, GedcomVersion version)
{
    return version == GedcomVersion::V551 ? select : QString("select 0 where 0");
}

// The one of a couple who bears what 5.5.1 has no place for in a family.
QString bearer(const QString& family)
{
    return QString("(select m.nind from familias m join individuo w on w.nind = m.nind where m.nfamilia = %1 "
                   "order by w.sexo = 'm', m.nind limit 1)")
        .arg(family);
}

QString witnessesSelect()
{
    return QString("select %1 as bearer, %2, s.entidade from assistente s left join individuo a on a.nind = s.nind "
                   "where s.tipoacto = 'c' and bearer is not null "
                   "order by bearer, s.entidade, s.dataref, s.nind, s.rowid")
        .arg(bearer("s.entidade"), assistantColumns);
}

QString priestSelect(const QString& priest, const QString& function, const QString& place)
{
    return QString("select %1 as bearer, f.%2, p.nind, f.%3, f.nfamilia, %4 from familia f "
                   "left join individuo p on p.nind = f.%2 where f.%2 is not null and bearer is not null")
        .arg(bearer("f.nfamilia"), priest, function, place);
}

QString priestsSelect()
{
    return priestSelect("primpadrecasam", "funcprimpcasam", "1") + " union all " +
           priestSelect("segpadrecasam", "funcsegpcasam", "2") + " order by 1, 5, 6";
}

} // namespace

GedcomWriter::OfPeople::OfPeople(const jet::Connection& bdp, GedcomVersion version)
    : godparents(bdp, godparentsSelect()),
      residences(bdp, "select numero, dataref, datafixa, localresid, tipolocal, fonte, obs from residencia "
                      "where tiporesid = 'i' order by numero, dataref"),
      professions(bdp, "select nind, dataref, datafixa, codprof, fonte, obs from profissoes "
                       "order by nind, dataref, idprofissao"),
      signatures(bdp, "select nind, dataref, datafixa, idade, nivelassinatura, assinatura, assina, fonte, funcao, obs, "
                      "idassinatura from assinatura order by nind, dataref, idassinatura"),
      bequests(bdp, "select l.nind, l.nindherd, a.nind, l.parentesco, l.bensmoveis, l.bensraiz, l.obs "
                    "from legadosprofanos l left join individuo a on a.nind = l.nindherd "
                    "order by l.nind, l.idlegprof"),
      suffrages(bdp, "select nind, tipolegpio, tipo, quantidade, valorunit, tipoMoeda, destino, numpadres, valortotal, "
                     "obs from rituaismorte order by nind, idlegpio"),
      passports(bdp, "select nind, dataref, localdestino, tipolocaldest, nPass, obs from passaporte "
                     "order by nind, dataref, nPass"),
      families(bdp, "select m.nind, m.nfamilia, (select count(*) from familias g join individuo j on j.nind = g.nind "
                    "where g.nfamilia = m.nfamilia and g.nind < m.nind) from familias m "
                    "join familia f on f.nfamilia = m.nfamilia "
                    "order by m.nind, f.datacasam is not null, f.datacasam, m.nfamilia"),
      baptisms(bdp, actsOfPeople(bdp, Register::Baptisms)), burials(bdp, actsOfPeople(bdp, Register::Burials)),
      witnesses(bdp, onlyIn551(witnessesSelect(), version)), priests(bdp, onlyIn551(priestsSelect(), version))
{
}

PersonCard cardAt(const jet::Rows& row)
{
    PersonCard card;
    int column = 0;
    card.number = row.number(column++);
    for (QString* const field : {&card.name, &card.title, &card.nickname, &card.sex})
        *field = row.text(column++);
    card.birth = dateAt(row, column);
    card.birthPlace = placeAt(row, column += 2);
    card.death = dateAt(row, column += 2);
    card.deathPlace = placeAt(row, column += 2);
    card.observedFrom = row.date(column += 2);
    card.observedUntil = row.date(++column);
    card.origin = row.number(++column);
    card.hasOrigin = !row.isNull(++column);
    for (parish::Code* const field :
         {&card.filiation, &card.fatherAge, &card.motherAge, &card.fatherState, &card.motherState, &card.ageAtDeath,
          &card.stateAtDeath, &card.sacraments, &card.parishClass, &card.height})
        *field = codeAt(row, ++column);
    for (bool* const field : {&card.minor, &card.will, &card.writtenWill})
        *field = row.number(++column) != 0;
    for (QString* const field : {&card.cause, &card.shroud, &card.church, &card.burial, &card.stature, &card.looks,
                                 &card.notes, &card.baptismFile, &card.burialFile})
        *field = row.text(++column);
    for (Link* const field : {&card.executor, &card.baptismPriests[0], &card.baptismPriests[1], &card.burialPriest}) {
        *field = linkAt(row, column + 1);
        column += 2;
    }
    for (parish::Code* const field : {&card.baptismFunctions[0], &card.baptismFunctions[1], &card.burialFunction})
        *field = codeAt(row, ++column);
    return card;
}

} // namespace study::exchange
