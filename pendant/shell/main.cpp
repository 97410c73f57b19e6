#include "Application.h"

int main(int argc, char** argv)
{
    return pendant::runPendant(argc, argv);
}
