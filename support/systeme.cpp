#include "support/systeme.hpp"

#include "plateforme/fichiers.hpp"
#include "plateforme/processus.hpp"
#include "support/utf8.hpp"

#include <new>

Systeme::Resultat Systeme::commande(const std::string& chemin,
                                    const std::vector<std::string>& arguments) {
    if (!plateforme::estExecutable(chemin)) {
        return {};
    }
    plateforme::FinDeProcessus fin = plateforme::executer(chemin, arguments);
    try {
        return {decoderUtf8(std::move(fin.octets)), fin.code};
    } catch (const std::bad_alloc&) {
        return {"(le texte ne tient pas en mémoire)", fin.code};
    }
}

bool Systeme::existe(const std::string& chemin) {
    return plateforme::existe(chemin);
}
