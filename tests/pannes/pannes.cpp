// Bibliothèque préchargée : fait échouer le n-ième appel au système d'un genre, ou y tue le
// programme.
//
// LUMIVIA_PANNE="[mort ]GENRE RANG" choisit l'appel ; seuls comptent ceux que l'exécutable fait
// lui-même, pas ceux de Qt ni de la bibliothèque C++. Les faits du Mac simulé (etat/) ne comptent
// pas non plus, un Mac y répond sans fichier, hors deux qui tiennent lieu d'appels faillibles. La
// sortie standard reçoit la panne au moment où elle survient, puis à la fin le compte de chaque
// genre.
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <map>
#include <mutex>
#include <spawn.h>
#include <string>
#include <sys/auxv.h>
#include <sys/eventfd.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

struct Pannes {
    std::mutex verrou;
    std::map<std::string, long> comptes;
    std::string voulue;

    Pannes() {
        const char* demande = std::getenv("LUMIVIA_PANNE");
        voulue = demande == nullptr ? "" : demande;
        // Les outils que le programme lance vivent sans pannes.
        ::unsetenv("LD_PRELOAD");
        ::unsetenv("LUMIVIA_PANNE");
    }

    ~Pannes() {
        for (const auto& [genre, compte] : comptes) {
            std::printf("compte\t%s\t%ld\n", genre.c_str(), compte);
        }
        std::fflush(stdout);
    }
} pannes;

void* base(const void* adresse) {
    Dl_info ou{};
    return ::dladdr(adresse, &ou) == 0 ? nullptr : ou.dli_fbase;
}

bool estNotre(const void* retour) {
    static const void* const programme = base(reinterpret_cast<void*>(::getauxval(AT_ENTRY)));
    return base(retour) == programme;
}

bool faitDuMac(const char* chemin) {
    const auto dans = [chemin](const char* dossier) { return std::strstr(chemin, dossier); };
    return dans("/etat/") && !dans("/etat/usb/") && !dans("/etat/redemarrage_demande");
}

// Compte cet appel ; vrai, errno posé, quand c'est lui qui doit échouer.
bool echoue(const char* genre, int erreur, const void* retour, const char* chemin) {
    if (!estNotre(retour) || faitDuMac(chemin)) {
        return false;
    }
    const std::lock_guard<std::mutex> garde(pannes.verrou);
    const long rang = ++pannes.comptes[genre];
    const std::string celui = std::string(genre) + ' ' + std::to_string(rang);
    const bool mort = pannes.voulue == "mort " + celui;
    if (!mort && pannes.voulue != celui) {
        return false;
    }
    std::printf("panne\t%s\n", chemin);
    std::fflush(stdout);
    if (mort && std::strcmp(genre, "write coupé") != 0) {
        ::raise(SIGKILL);
    }
    errno = erreur;
    return true;
}

bool echoue(const char* genre, int erreur, const void* retour, int descripteur) {
    std::array<char, 4096> chemin{};
    const std::string lien = "/proc/self/fd/" + std::to_string(descripteur);
    static_cast<void>(::readlink(lien.c_str(), chemin.data(), chemin.size() - 1));
    return echoue(genre, erreur, retour, chemin.data());
}

} // namespace

#define RETOUR __builtin_return_address(0)
#define VRAIE(nom) reinterpret_cast<decltype(&::nom)>(::dlsym(RTLD_NEXT, #nom))
#define REMPLACER(rendu, nom, genre, erreur, objet, parametres, arguments, suite)                  \
    rendu nom parametres suite {                                                                   \
        return echoue(genre, erreur, RETOUR, objet) ? -1 : VRAIE(nom) arguments;                   \
    }

extern "C" {

int open(const char* chemin, int options, ...) {
    va_list suite;
    va_start(suite, options);
    const mode_t permissions = (options & O_CREAT) != 0 ? va_arg(suite, mode_t) : 0;
    va_end(suite);
    return echoue("open", EMFILE, RETOUR, chemin) ? -1 : VRAIE(open)(chemin, options, permissions);
}

REMPLACER(ssize_t, read, "read", EIO, f, (int f, void* ou, size_t n), (f, ou, n), )
REMPLACER(int, rename, "rename", ENOSPC, b, (const char* a, const char* b), (a, b), noexcept)
REMPLACER(int, link, "link", EPERM, b, (const char* a, const char* b), (a, b), noexcept)
REMPLACER(int, mkdir, "mkdir", ENOSPC, a, (const char* a, mode_t droits), (a, droits), noexcept)
REMPLACER(int, chmod, "chmod", EPERM, a, (const char* a, mode_t droits), (a, droits), noexcept)
REMPLACER(int, fchmod, "chmod", EPERM, f, (int f, mode_t droits), (f, droits), noexcept)
REMPLACER(int, unlink, "unlink", EPERM, a, (const char* a), (a), noexcept)
REMPLACER(int, rmdir, "rmdir", EPERM, a, (const char* a), (a), noexcept)
REMPLACER(int, eventfd, "eventfd", EMFILE, "réveil", (unsigned n, int o), (n, o), noexcept)
REMPLACER(pid_t, waitpid, "waitpid", ECHILD, "enfant", (pid_t p, int* s, int o), (p, s, o), )
REMPLACER(int, pipe2, "pipe", EMFILE, "tube", (int tube[2], int options), (tube, options), noexcept)

ssize_t write(int fichier, const void* octets, size_t nombre) {
    if (echoue("write", ENOSPC, RETOUR, fichier)) {
        return -1;
    }
    const bool moitie = echoue("write coupé", 0, RETOUR, fichier);
    const ssize_t ecrits = VRAIE(write)(fichier, octets, moitie ? (nombre + 1) / 2 : nombre);
    if (moitie && pannes.voulue.rfind("mort ", 0) == 0) {
        ::raise(SIGKILL);
    }
    return ecrits;
}

int close(int fichier) {
    const bool echec = echoue("close", EIO, RETOUR, fichier);
    const int rendu = VRAIE(close)(fichier);
    errno = echec ? EIO : errno;
    return echec ? -1 : rendu;
}

int posix_spawn(pid_t* enfant, const char* chemin, const posix_spawn_file_actions_t* actions,
                const posix_spawnattr_t* attributs, char* const arguments[],
                char* const environnement[]) {
    const auto lancer = VRAIE(posix_spawn);
    return echoue("spawn", EAGAIN, RETOUR, chemin)
               ? EAGAIN
               : lancer(enfant, chemin, actions, attributs, arguments, environnement);
}

void* dlopen(const char* chemin, int options) noexcept {
    // L'échec est celui d'un fichier absent : dlerror en garde le texte.
    const bool echec = chemin != nullptr && echoue("dlopen", 0, RETOUR, chemin);
    return VRAIE(dlopen)(echec ? (std::string(chemin) + ".absent").c_str() : chemin, options);
}

} // extern "C"
