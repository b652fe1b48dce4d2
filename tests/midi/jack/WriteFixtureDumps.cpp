// Writes the dumps z1sim is started with in the JACK tests into a folder.

#include "FixtureDumps.h"

#include <iostream>

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::cerr << "usage: write_fixture_dumps FOLDER\n";
        return 2;
    }
    std::filesystem::create_directories(argv[1]);
    return quillon::writeFixtureDumps(argv[1]) ? 0 : 1;
}
