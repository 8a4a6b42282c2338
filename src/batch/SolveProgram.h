#pragma once

#include "batch/SolveRequest.h"

namespace quarnel02 {

/// All of quarnel02-solve: reads the command line, solves, prints, and returns the exit status.
/// `--pdf` is for a program that brings what makes PDF files; without, it ends as HandOverToReport
/// does.
int RunSolveProgram(int argc, char* argv[], const PdfMaker& pdf = {});

}  // namespace quarnel02
