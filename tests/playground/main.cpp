// The scenario runner with one form more in the program, which has all that the runner's own tests need.
#include "frmProva.h"
#include "runner.h"

#include "platform/forms/forms.h"

int main(int argc, char** argv)
{
    Forms::add("frmProva", [] { return new FrmProva; });
    return runScenarios(argc, argv);
}
