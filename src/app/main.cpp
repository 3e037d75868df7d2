#include "app/command_line.h"

int main(int count, char** arguments) { return qsl::run_program(count, arguments); }
