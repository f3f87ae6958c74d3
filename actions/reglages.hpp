// L'adresse des Réglages où se gèrent les extensions. Fonction pure.
#pragma once

#include <cstdint>

const char* adresseReglagesExtensions(std::int64_t versionMajeure);
