#include "plateforme/posix/erreurs.hpp"

#include <array>
#include <cerrno>
#include <system_error>
#include <utility>

namespace plateforme::natif {
namespace {

// Les causes qu'un utilisateur peut rencontrer ; le support lit le journal en français.
constexpr std::array<std::pair<int, const char*>, 16> kCauses{{
    {EACCES, "vous n'avez pas la permission"},
    {EPERM, "opération refusée"},
    {ENOENT, "fichier ou dossier introuvable"},
    {ENOTDIR, "un fichier se trouve à la place d'un dossier"},
    {EISDIR, "un dossier se trouve à la place du fichier"},
    {EEXIST, "un élément de ce nom existe déjà"},
    {ENOTEMPTY, "le dossier n'est pas vide"},
    {ENOSPC, "il n'y a plus de place sur le disque"},
    {EFBIG, "le fichier dépasse la taille permise"},
    {EROFS, "le disque est en lecture seule"},
    {EMFILE, "trop de fichiers sont ouverts"},
    {ENFILE, "trop de fichiers sont ouverts sur ce Mac"},
    {EAGAIN, "trop de programmes sont en route"},
    {ENOMEM, "il n'y a plus assez de mémoire"},
    {ENOEXEC, "le format du programme n'est pas reconnu"},
    {EIO, "erreur de lecture ou d'écriture"},
}};

} // namespace

std::string decrireErreur(int code, const std::string& chemin) {
    std::string cause = std::system_category().message(code);
    for (const auto& [connu, texte] : kCauses) {
        if (connu == code) {
            cause = texte;
        }
    }
    return "« " + chemin + " » : " + cause + " (erreur " + std::to_string(code) + ").";
}

} // namespace plateforme::natif
