// The command: plays sessions in processes of their own, side by side, and tells what came of them.
#pragma once

namespace Inputs {

int runInputs(int argc, char** argv); // the exit status

}
