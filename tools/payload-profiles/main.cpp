#include "CommandLine.h"

int main(int argumentCount, char** arguments) {
    return norel::Desktop::PayloadProfiles::run(argumentCount, arguments);
}
