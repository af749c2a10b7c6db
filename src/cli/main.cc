#include "cli/program.h"

int main(int argc, char **argv) { return cli::run_program(argc, argv, cli::this_program(), cli::run_command); }
