// The statements of the searches, up to what the user has filled in.
#pragma once

#include <QString>

namespace jet::test {

inline const QString people =
    "select individuo.nind as Nind, nome, datanasc, dataobito,  famorig from individuo where ";
inline const QString marriages =
    "select individuo.nind as Nind, nome, datanasc, dataobito,  famorig, first(datacasam) from individuo, familias, "
    "familia where  individuo.nind =  familias.nind and familia.nfamilia = familias.nfamilia ";
inline const QString parents =
    "select individuo.nind as Nind, individuo.nome as nome,  individuo.datanasc as DataNasc,individuo.dataobito as "
    "DataObito, individuo.famorig as Famorig, min(filho.datanasc) from individuo, individuo as filho, familias where "
    "individuo.nind = familias.nind and  filho.famorig = familias.nfamilia ";
inline const QString couples =
    "select familia.nfamilia as nfamilia, tipocasal,  datacasam,  min(filho.datanasc) from individuo, individuo as "
    "filho, familias, familia where familia.nfamilia =  familias.nfamilia and  individuo.nind = familias.nind and  "
    "filho.famorig = familias.nfamilia ";

} // namespace jet::test
