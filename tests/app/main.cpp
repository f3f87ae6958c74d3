#include <gtest/gtest.h>

// La fin du programme est celle de l'assistant : un retour ordinaire, fils encore en route ou non.
int main(int nombre, char** arguments) {
    ::testing::InitGoogleTest(&nombre, arguments);
    return RUN_ALL_TESTS();
}
