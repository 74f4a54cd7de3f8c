#include "app/application.h"

int main(int argc, char** argv) {
    return velmora::runApplication(argc, argv);
}
