// The scenario runner with one form more in the program, which has all that the runner's own tests need. With --hasten
// as the first argument, a second of a scenario's limit is over ten times as soon.
#include "frmProva.h"
#include "runner.h"

#include "platform/forms/forms.h"

#include <algorithm>

int main(int argc, char** argv)
{
    Forms::add("frmProva", [] { return new FrmProva; });
    if (argc < 2 || qstrcmp(argv[1], "--hasten") != 0) return runScenarios(argc, argv);
    std::rotate(argv + 1, argv + 2, argv + argc);
    return runScenarios(argc - 1, argv, std::chrono::milliseconds(100));
}
