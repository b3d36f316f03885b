#include "places/frmLocalizacao_niveis.h"

#include <algorithm>

// Kept: lstLocal never shows countries and districts, though they can be put on the working list; and a zone is taken
// off in a table that doesn't exist, so that it stays on it.
const FrmLocalizacao::DadosDoNivel FrmLocalizacao::niveis[] = {
    {"P", &Ui_FrmLocalizacao::cmbPais, nullptr, "nomepais", "codpais", 0, nullptr,
     "update pais set prioridade = 1 where codpais = ?", "update pais set prioridade = 0 where codpais = ?"},
    {"Z", &Ui_FrmLocalizacao::cmbZona, &Ui_FrmLocalizacao::cmdZ, "nomezona", "codzona", 3,
     "Select * from Zonapais where prioridade <>0", "update zonapais set prioridade = 1 where codzona = ?",
     "update zona set prioridade = 0 where codzona = ?"},
    {"D", &Ui_FrmLocalizacao::cmbDistrito, nullptr, "nomedistrito", "coddistrito", 1, nullptr,
     "update distrito set prioridade = 1 where coddistrito = ?",
     "update distrito set prioridade = 0 where coddistrito = ?"},
    {"C", &Ui_FrmLocalizacao::cmbConcelho, nullptr, "nomeconcelho", "codconcelho", 3,
     "Select * from Concelho where prioridade <>0", "update concelho set prioridade = 1 where codconcelho = ?",
     "update concelho set prioridade = 0 where codconcelho = ?"},
    {"F", &Ui_FrmLocalizacao::cmbParoquia, nullptr, "nomeparoquia", "codparoquia", 5,
     "Select * from paroquia where prioridade <>0", "update paroquia set prioridade = 1 where codparoquia = ?",
     "update paroquia set prioridade = 0 where codparoquia = ?"},
    {"L", &Ui_FrmLocalizacao::cmbLugar, &Ui_FrmLocalizacao::cmdLug, "nomelugar", "codlugar", 7,
     "Select * from Lugar where prioridade <>0", "update lugar set prioridade = 1 where codlugar = ?",
     "update lugar set prioridade = 0 where codlugar = ?"},
    {"S", &Ui_FrmLocalizacao::cmbS, &Ui_FrmLocalizacao::cmdSit, "nomesitio", "codsitio", 9,
     "Select * from sitio where prioridade <>0", nullptr, "update sitio set prioridade = 0 where codsitio = ?"},
};

const FrmLocalizacao::DadosDoNivel* FrmLocalizacao::DadosDoNivel::doTipo(const QString& tipo)
{
    const auto nivel =
        std::ranges::find_if(niveis, [&](const DadosDoNivel& n) { return tipo == QLatin1String(n.tipo); });
    return nivel == std::end(niveis) ? nullptr : nivel;
}
