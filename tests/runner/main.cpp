// orv-scenario: plays the scenarios of the files given.
#include "runner.h"

int main(int argc, char** argv)
{
    return runScenarios(argc, argv);
}
