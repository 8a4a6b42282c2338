// quarnel02-solve: designs the assembly line of model files from the shell.

#include "batch/SolveProgram.h"

int main(int argc, char* argv[]) {
    return quarnel02::RunSolveProgram(argc, argv);
}
