#include "common/globals.h"

#include "common/pedidoDeLocal.h"

long NindCorrente = 0;
double NfamCorrente = 0;
int OrigemInd = 8;
int IndChamado = 0;
int OrigemFam = 0;
int OrigemInterv = 0;
int OrigemResid = 0;
bool EmPesquisa = false;
QString DataActo;

void limpaGlobais()
{
    NindCorrente = 0;
    NfamCorrente = 0;
    OrigemInd = 8;
    IndChamado = 0;
    OrigemFam = 0;
    OrigemInterv = 0;
    OrigemResid = 0;
    EmPesquisa = false;
    DataActo.clear();
    esquecePedidoDeLocal();
}
