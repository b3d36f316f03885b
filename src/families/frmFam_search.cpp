// The search: by example and by dates.
#include "families/frmFam.h"

void FrmFam::cmdLoc_Click() {}

void FrmFam::cmdLocDat_Click() {}
