#include "plateforme/fichiers.hpp"

#include "plateforme/posix/descripteur.hpp"
#include "plateforme/posix/erreurs.hpp"
#include "plateforme/posix/particularites.hpp"

#include <array>
#include <charconv>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace plateforme {
namespace {

using natif::cheminReel;
using natif::decrireErreur;
using natif::Descripteur;
using natif::ecrireTout;
using natif::sansInterruption;

constexpr std::size_t kBloc = 64UL * 1024;
constexpr mode_t kModeFichier = 0644;
constexpr mode_t kModeDossier = 0755;

// Six caractères qui nomment un processus : on saura de quel programme vient un fichier temporaire,
// et s'il vit encore.
std::string marqueDe(pid_t processus) {
    std::string marque(6, '0');
    for (auto place = marque.rbegin(); processus > 0 && place != marque.rend(); ++place) {
        *place = "0123456789abcdefghijklmnopqrstuvwxyz"[processus % 36];
        processus /= 36;
    }
    return marque;
}

// Le processus que nomme une marque ; 0 quand ce n'en est pas une.
pid_t processusDe(const std::string& marque) {
    pid_t processus = 0;
    const auto [fin, erreur] =
        std::from_chars(marque.data(), marque.data() + marque.size(), processus, 36);
    return erreur == std::errc() && marque == marqueDe(processus) ? processus : 0;
}

// Les temporaires d'une cible : son nom, cette séparation, une marque.
constexpr const char* kSeparation = ".";

// Les noms que porte un dossier, hors lui-même et le dossier au-dessus ; aucun quand il ne se lit
// pas.
std::vector<std::string> elements(const std::string& reel) {
    std::vector<std::string> noms;
    const std::unique_ptr<DIR, int (*)(DIR*)> dossier(::opendir(reel.c_str()), ::closedir);
    while (const dirent* element = dossier ? ::readdir(dossier.get()) : nullptr) {
        const std::string nom = element->d_name;
        if (nom != "." && nom != "..") {
            noms.push_back(nom);
        }
    }
    return noms;
}

// Ce qui ne s'ôte pas reste : il ne gêne pas.
void oterLesAbandonnes(const std::string& cible) {
    const std::size_t barre = cible.rfind('/');
    const std::string debut = cible.substr(barre + 1) + kSeparation;
    for (const std::string& nom : elements(cible.substr(0, barre))) {
        if (nom.compare(0, debut.size(), debut) != 0) {
            continue;
        }
        const pid_t auteur = processusDe(nom.substr(debut.size()));
        if (auteur > 0 && ::kill(auteur, 0) != 0 && errno == ESRCH) {
            ::unlink((cible.substr(0, barre + 1) + nom).c_str());
        }
    }
}

// Fichier temporaire voisin de sa cible, retiré s'il n'a pas été installé.
class Temporaire {
public:
    explicit Temporaire(const std::string& cible)
        : nom_(cible + kSeparation + marqueDe(::getpid())) {
        oterLesAbandonnes(cible);
        ::unlink(nom_.c_str()); // d'un programme mort qui avait notre numéro ; d'ordinaire, rien
        descripteur_ = sansInterruption([&] {
            return ::open(nom_.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, kModeFichier);
        });
    }

    Temporaire(const Temporaire&) = delete;
    Temporaire& operator=(const Temporaire&) = delete;

    ~Temporaire() {
        fermer();
        if (existe_) {
            ::unlink(nom_.c_str());
        }
    }

    bool ecrire(const std::string& contenu) {
        existe_ = descripteur_ >= 0;
        return existe_ && ecrireTout(descripteur_, contenu) &&
               ::fchmod(descripteur_, kModeFichier) == 0 && fermer();
    }

    bool installer(const std::string& cible) {
        const bool fait = ::rename(nom_.c_str(), cible.c_str()) == 0;
        existe_ = existe_ && !fait;
        return fait;
    }

    bool lier(const std::string& cible) const { return ::link(nom_.c_str(), cible.c_str()) == 0; }

private:
    bool fermer() { return descripteur_ < 0 || ::close(std::exchange(descripteur_, -1)) == 0; }

    std::string nom_;
    int descripteur_ = -1;
    bool existe_ = false;
};

// Ouvre un fichier ordinaire existant ; fermé (errno) pour tout le reste. O_NONBLOCK : un tube
// nommé à sa place ne doit pas bloquer l'assistant.
Descripteur ouvrirOrdinaire(const std::string& chemin, int mode) {
    Descripteur fichier(sansInterruption(
        [&] { return ::open(cheminReel(chemin).c_str(), mode | O_CLOEXEC | O_NONBLOCK); }));

    struct stat infos {};

    if (fichier.ouvert() && (::fstat(fichier.numero(), &infos) != 0 || !S_ISREG(infos.st_mode))) {
        fichier.fermer();
        errno = EINVAL;
    }
    return fichier;
}

// Là où les liens n'existent pas (exFAT, dossier personnel en réseau). Une écriture ratée laisse le
// fichier : un autre programme y a peut-être déjà ajouté.
bool creerSurPlace(const std::string& reel, const std::string& octets) {
    Descripteur fichier(sansInterruption([&] {
        return ::open(reel.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_APPEND | O_CLOEXEC,
                      kModeFichier);
    }));
    return fichier.ouvert() && ecrireTout(fichier.numero(), octets) && fichier.fermer();
}

} // namespace

bool existe(const std::string& chemin) {
    struct stat infos {};

    return ::stat(cheminReel(chemin).c_str(), &infos) == 0;
}

bool estExecutable(const std::string& chemin) {
    const std::string reel = cheminReel(chemin);

    struct stat infos {};

    return ::stat(reel.c_str(), &infos) == 0 && S_ISREG(infos.st_mode) &&
           ::access(reel.c_str(), X_OK) == 0;
}

std::optional<std::string> lireFichier(const std::string& chemin, std::size_t limite) {
    const Descripteur fichier = ouvrirOrdinaire(chemin, O_RDONLY);
    if (!fichier.ouvert()) {
        return std::nullopt;
    }
    std::string contenu;
    std::array<char, kBloc> bloc; // NOLINT(*-member-init) : rempli par la lecture
    for (;;) {
        const ssize_t lus =
            sansInterruption([&] { return ::read(fichier.numero(), bloc.data(), kBloc); });
        if (lus == 0) {
            return contenu;
        }
        if (lus < 0 || contenu.size() + static_cast<std::size_t>(lus) > limite) {
            return std::nullopt;
        }
        contenu.append(bloc.data(), static_cast<std::size_t>(lus));
    }
}

Erreur creerDossiers(const std::string& chemin) {
    const std::string reel = cheminReel(chemin);
    for (std::size_t fin = reel.find('/', 1);; fin = reel.find('/', fin + 1)) {
        const std::string partie = reel.substr(0, fin);
        if (::mkdir(partie.c_str(), kModeDossier) != 0 && errno != EEXIST) {
            return decrireErreur(errno, chemin);
        }
        if (fin == std::string::npos) {
            break;
        }
    }

    struct stat infos {};

    if (::stat(reel.c_str(), &infos) != 0 || !S_ISDIR(infos.st_mode)) {
        return decrireErreur(ENOTDIR, chemin);
    }
    return std::nullopt;
}

Erreur ecrireAtomiquement(const std::string& chemin, const std::string& contenu) {
    const std::string reel = cheminReel(chemin);
    Temporaire temporaire(reel);
    if (!temporaire.ecrire(contenu) || !temporaire.installer(reel)) {
        return decrireErreur(errno, chemin);
    }
    return std::nullopt;
}

Erreur ecrire(const std::string& chemin, const std::string& contenu) {
    const std::string reel = cheminReel(chemin);
    Descripteur fichier(sansInterruption([&] {
        return ::open(reel.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, kModeFichier);
    }));
    if (!fichier.ouvert()) {
        return decrireErreur(errno, chemin);
    }
    if (!ecrireTout(fichier.numero(), contenu) || !fichier.fermer()) {
        const int cause = errno;
        ::unlink(reel.c_str()); // un échec de plus n'ôte rien à la première cause, qui est dite
        return decrireErreur(cause, chemin);
    }
    return std::nullopt;
}

Erreur changerPermissions(const std::string& chemin, unsigned permissions) {
    if (::chmod(cheminReel(chemin).c_str(), static_cast<mode_t>(permissions)) != 0) {
        return decrireErreur(errno, chemin);
    }
    return std::nullopt;
}

Erreur supprimer(const std::string& chemin) {
    const std::string reel = cheminReel(chemin);

    struct stat infos {};

    if (::lstat(reel.c_str(), &infos) != 0) {
        return std::nullopt; // rien, ou rien que l'on puisse atteindre
    }
    const bool dossier = S_ISDIR(infos.st_mode);
    if (dossier) {
        const std::string dedans = chemin + "/";
        for (const std::string& nom : elements(reel)) {
            if (Erreur erreur = supprimer(dedans + nom)) {
                return erreur;
            }
        }
    }
    if ((dossier ? ::rmdir(reel.c_str()) : ::unlink(reel.c_str())) != 0 && errno != ENOENT) {
        return decrireErreur(errno, chemin);
    }
    return std::nullopt;
}

void oterTemporaires(const std::string& chemin) {
    oterLesAbandonnes(cheminReel(chemin));
}

bool finitUneLigne(const std::string& chemin) {
    const Descripteur fichier = ouvrirOrdinaire(chemin, O_RDONLY);
    char dernier = '\n';
    // Absent ou vide, il n'a pas de dernier caractère : la lecture échoue.
    const off_t fin = ::lseek(fichier.numero(), 0, SEEK_END);
    return ::pread(fichier.numero(), &dernier, 1, fin - 1) != 1 || dernier == '\n';
}

Ajout ajouterALaFin(const std::string& chemin, const std::string& octets) {
    const Descripteur fichier = ouvrirOrdinaire(chemin, O_WRONLY | O_APPEND);
    if (!fichier.ouvert()) {
        return errno == ENOENT ? Ajout::absent : Ajout::echec;
    }
    return ecrireTout(fichier.numero(), octets) ? Ajout::fait : Ajout::echec;
}

bool creerSansEcraser(const std::string& chemin, const std::string& octets) {
    const std::string reel = cheminReel(chemin);
    Temporaire temporaire(reel);
    if (!temporaire.ecrire(octets)) {
        return false;
    }
    return temporaire.lier(reel) || (errno != EEXIST && creerSurPlace(reel, octets));
}

} // namespace plateforme
