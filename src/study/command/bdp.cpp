#include "study/command/bdp.h"

#include "store/modBD.h"
#include "store/session.h"

namespace study {

void openBdp(jet::Connection& bdp, const QString& path, jet::Connection::Sharing sharing)
{
    bdp.open(connectionString(path), sharing);
    for (const char* table : {"individuo", "familia", "familias", "infopar"})
        if (!ExisteTabela(table, bdp))
            throw jet::Error(jet::number::engineFailure, QString("O ficheiro \"%1\" não é uma BDP.").arg(path));
    if (!ExisteColuna("individuo", "rpObi", bdp) || !ExisteColuna("familia", "rpCas", bdp))
        throw jet::Error(jet::number::engineFailure,
                         QString("A BDP \"%1\" é antiga: abra-a primeiro no programa, que a actualiza.").arg(path));
}

// What a killed program has left beside the file is put right first, where that can be.
void openBdpToRead(jet::Connection& bdp, const QString& path)
{
    using enum jet::Connection::Sharing;
    try {
        openBdp(bdp, path, Shared);
    } catch (const jet::Error& error) {
        if (error.number != jet::number::permissionDenied) throw;
        openBdp(bdp, path, ReadOnly);
    }
}

} // namespace study
