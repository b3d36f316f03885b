// Insert and alteration: two-step commands, told apart by their captions.
#include "families/frmFam.h"

void FrmFam::cmdIns_Click() {}

void FrmFam::cmdAlt_Click() {}

void FrmFam::cmdElim_Click() {}
