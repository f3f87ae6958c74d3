// Une liste de propriétés XML relue par un lecteur indépendant.
#pragma once

#include <array>
#include <cstdio>
#include <string>

namespace essai {

// La valeur de cette expression de Python sur la liste `d`, ou le texte de l'erreur.
inline std::string relireListe(const std::string& fichier, const std::string& expression) {
    const std::string commande =
        "/usr/bin/python3 -c 'import plistlib,sys; d=plistlib.load(open(sys.argv[1],\"rb\"),"
        "fmt=plistlib.FMT_XML); sys.stdout.buffer.write(str(" +
        expression + ").encode())' \"" + fichier + "\" 2>&1";
    FILE* flux = ::popen(commande.c_str(), "r");
    std::array<char, 4096> tampon{};
    const std::size_t lus = std::fread(tampon.data(), 1, tampon.size(), flux);
    ::pclose(flux);
    return {tampon.data(), lus};
}

} // namespace essai
