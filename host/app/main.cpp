// kdhost: the program.

#include "host/app/program.h"

int main(int argc, char** argv) {
    return kdhost::runProgram(argc, argv);
}
