// The seven levels, as the picker's routines share them.
#pragma once

#include "places/frmLocalizacao.h"

struct FrmLocalizacao::DadosDoNivel
{
    const char* tipo; // the letter
    ComboBox* Ui_FrmLocalizacao::*lista;
    CommandButton* Ui_FrmLocalizacao::*editor; // opens with the list; null where the level has no editor here
    const char* nome;                          // the column of the name
    const char* codigo;                        // the column of the code
    int inicio;                                // where in the code the level's own number begins
    const char* daLista;                       // its places on the working list; null where they aren't read
    const char* guarda; // puts a place on the working list; null for a site, of which the name is asked too
    const char* retira; // takes it off

    static const DadosDoNivel* doTipo(const QString& tipo); // null for a letter of no level
};
