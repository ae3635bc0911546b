#include "CommandLine.h"

int main(int argc, char** argv) {
    return zyr::runCommandLine(argc, argv);
}
