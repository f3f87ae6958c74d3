// Le verdict d'un retrait, d'après ce que le script a affiché. Fonction pure.
#pragma once

#include <cstdint>
#include <string_view>

// Vrai quand le script est allé au bout, que la reconstruction demandée a été confirmée (exigé de
// macOS 13 et suivants) et que D2xxHelper n'est plus sur le disque.
bool retraitReussi(std::string_view sortie, bool reconstructionDemandee,
                   std::int64_t versionMajeure, bool d2xxHelperEncoreLa);
