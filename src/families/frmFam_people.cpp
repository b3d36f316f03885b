// The two members, and what follows from their dates.
#include "families/frmFam.h"

void FrmFam::txtNind_Change(int) {}

void FrmFam::mskData_GotFocus() {}

void FrmFam::mskData_Change() {}

void FrmFam::mskData_LostFocus() {}

void FrmFam::txtIdade_Validate(int) {}

void FrmFam::txtNC_Validate(int) {}

QString FrmFam::CalculaTipoFamilia(double)
{
    return {};
}
