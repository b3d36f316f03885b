#include "study/names/lexicon.h"

namespace study::lexicon {

const QSet<QString>& particles()
{
    static const QSet<QString> words{"de", "da", "do", "das", "dos", "e", "d", "d'", "d’", "del"};
    return words;
}

const QHash<QString, QString>& titles()
{
    static const QHash<QString, QString> words{{"dom", "Dom"},
                                               {"dona", "Dona"},
                                               {"d", "D."},
                                               {"fr", "Frei"},
                                               {"frei", "Frei"},
                                               {"pe", "Padre"},
                                               {"padre", "Padre"},
                                               {"p", "Padre"},
                                               {"rdo", "Reverendo"},
                                               {"revdo", "Reverendo"},
                                               {"dr", "Doutor"},
                                               {"doutor", "Doutor"},
                                               {"ldo", "Licenciado"},
                                               {"cap", "Capitão"},
                                               {"capitao", "Capitão"},
                                               {"alf", "Alferes"},
                                               {"alferes", "Alferes"},
                                               {"sargmor", "Sargento-mor"},
                                               {"sr", "Senhor"},
                                               {"senhor", "Senhor"},
                                               {"sargentomor", "Sargento-mor"},
                                               {"capitaomor", "Capitão-mor"},
                                               {"capmor", "Capitão-mor"},
                                               {"soror", "Sóror"},
                                               {"sor", "Sóror"},
                                               {"reverendo", "Reverendo"},
                                               {"licenciado", "Licenciado"}};
    return words;
}

const QSet<QString>& states()
{
    static const QSet<QString> words{"exposto", "exposta", "engeitado", "engeitada", "enjeitado", "enjeitada"};
    return words;
}

const QSet<QString>& tags()
{
    static const QSet<QString> words{"velho", "velha", "moco", "moca", "novo", "nova", "maior", "menor"};
    return words;
}

const QSet<QString>& noNames()
{
    static const QSet<QString> words{"n",
                                     "nn",
                                     "ignorado",
                                     "ignorada",
                                     "desconhecido",
                                     "incognito",
                                     "incognita",
                                     "desconhecida",
                                     "incognitos",
                                     "sem nome",
                                     "pai incognito",
                                     "mae incognita",
                                     "pais incognitos",
                                     "filho de pais incognitos",
                                     "filha de pais incognitos",
                                     "nao consta"};
    return words;
}

} // namespace study::lexicon
