// wheelbuild: makes the five wheel databases from data/wheels.   wheelbuild WHEELS FOLDER
#include <iostream>

#include "wheels/databases.h"

int main(int count, char** words) {
    if (count != 3) {
        std::cerr << "wheelbuild WHEELS FOLDER\n";
        return 2;
    }
    try {
        wheels::buildDatabases(wheels::WheelStore(words[1]), words[2]);
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "wheelbuild: " << error.what() << '\n';
        return 1;
    }
}
