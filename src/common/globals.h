// What the cards hand over to each other.
#pragma once

#include <QString>

extern long NindCorrente;   // number of the individual in hand
extern double NfamCorrente; // number of the family in hand
extern int OrigemInd;       // who called frmInd: 8 nobody; 0, 1, 2 frmFam; 3, 4, 5 frmIntervenientes; 6 frmFuneral;
                            // 7 frmLegados; 9 the executor
extern int IndChamado;      // 1 while frmInd is called up by another card
extern int OrigemFam;       // who called frmFam: 0 the menu, 1 cmdDirFam, 2 cmdConsRel
extern int OrigemInterv;    // frmIntervenientes serves 1 a family, 2 an individual
extern int OrigemResid;     // frmResid serves 1 a family, 2 an individual
extern bool EmPesquisa;     // a search is in progress: nothing may be added, altered or deleted
extern QString DataActo;    // date of the act that DentroObservacao tests, dd/mm/yyyy

// All of them as at the start of the program, and no request for a place.
void limpaGlobais();
