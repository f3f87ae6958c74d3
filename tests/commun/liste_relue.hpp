// Une liste de propriétés XML relue par un lecteur indépendant.
#pragma once

#include "plateforme/processus.hpp"

namespace essai {

// La valeur de cette expression de Python sur la liste `d`, ou le texte de l'erreur. Par /bin :
// /usr/bin est celui du Mac simulé.
inline std::string relireListe(const std::string& fichier, const std::string& expression) {
    const std::string lecture = "import plistlib,sys; d=plistlib.load(open(sys.argv[1],'rb'),"
                                "fmt=plistlib.FMT_XML); sys.stdout.buffer.write(str(" +
                                expression + ").encode())";
    return plateforme::executer("/bin/python3", {"-c", lecture, fichier}).octets;
}

} // namespace essai
