#include "mac_simule/robot/robot.hpp"

#include "mac_simule/faits/faits.hpp"
#include "mac_simule/robot/gestes.hpp"
#include "mac_simule/robot/regard.hpp"
#include "mac_simule/robot/transcription.hpp"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <map>
#include <sstream>
#include <utility>

namespace robot {
namespace {

namespace fs = std::filesystem;
using Horloge = std::chrono::steady_clock;

constexpr int kPatience = 120;           // s, sans que la page change
constexpr std::chrono::seconds kVie{60}; // d'un récit
// Au-delà, les pages tournent en rond. Les images se numérotent sur deux chiffres, et une page en
// prend plusieurs.
constexpr int kImagesMax = 90;

std::string variable(const char* nom) {
    const char* valeur = std::getenv(nom);
    return valeur == nullptr ? "" : valeur;
}

std::chrono::seconds patience() {
    const int voulue = std::atoi(variable("LUMIVIA_PATIENCE").c_str());
    return std::chrono::seconds(voulue > 0 ? voulue : kPatience);
}

// Vrai quand tout est écrit.
bool ajouter(const std::string& fichier, const std::string& texte) {
    std::ofstream flux(fichier, std::ios::binary | std::ios::app);
    flux << texte << std::flush;
    return flux.good();
}

class Robot {
public:
    void regarder() {
        if (dossier_.empty() && Horloge::now() - naissance_ > kVie) {
            std::_Exit(3);
        }
        const std::string vue = titre();
        if (fini_ || vue.empty()) {
            return;
        }
        if (const std::string copie = pressePapiers(); copie != rapport_) {
            rapport_ = copie;
            dire("rapport", copie);
        }
        // Un fait change dès le geste d'avant, même si la page n'est plus la sienne.
        while (pret() && gestes_.front().front() == '@') {
            avancer();
        }
        if (alerteOuverte()) {
            repondreALAlerte();
            return;
        }
        if (vue != page_) {
            page_ = vue;
            entrerDansLaPage();
        }
        if (pret()) {
            avancer();
        }
        exiger(Horloge::now() - changement_ < patience_,
               "la page « " + page_ + " » ne change plus");
    }

private:
    bool pret() const {
        return !fini_ && !gestes_.empty() && Horloge::now() >= reveil_ && !mac_.present(kPortrait);
    }

    void avancer() {
        const std::string geste = gestes_.front();
        gestes_.pop_front();
        faire(geste);
    }

    // Déjà prises, redémarrages compris.
    int nombreDImages() const {
        return std::atoi(mac_.lire("demonstration/numero").value_or("0").c_str());
    }

    void entrerDansLaPage() {
        dire("page", page_);
        changement_ = reveil_ = Horloge::now();
        const std::string derniere = mac_.lire("fin").value_or("");
        exiger(nombreDImages() < kImagesMax, std::to_string(kImagesMax) +
                                                 " images n'ont pas mené à la page « " + derniere +
                                                 " »");
        gestes_ = prendreGestes(table_, page_, page_ == derniere);
        if (page_ != derniere && !gestes_.empty()) {
            suivreLeScenario();
        }
    }

    // Les gestes du scénario servent une fois chacun, dans l'ordre du fichier : celui d'une page y
    // prend la place du dernier.
    void suivreLeScenario() {
        std::string lignes = "\n";
        lignes += mac_.texte("gestes");
        const std::size_t debut = lignes.find("\n" + page_ + "\t") + 1;
        if (debut > 0) {
            const std::size_t taille = lignes.find('\n', debut) - debut;
            gestes_.back() = lignes.substr(debut, taille).substr(page_.size() + 1);
            exiger(mac_.ecrire("gestes", lignes.erase(debut, taille + 1).substr(1)),
                   "les gestes du scénario ne s'écrivent pas");
        }
    }

    void repondreALAlerte() {
        changement_ = Horloge::now();
        std::string lue;
        for (const std::string& texte : textes("étiquette")) {
            lue += (lue.empty() ? "" : " ") + texte;
        }
        dire("alerte", lue);
        image("alerte");
        cliquer("");
    }

    void faire(const std::string& geste) {
        const std::size_t blanc = std::min(geste.find_first_of(" ="), geste.size() - 1);
        const std::string verbe = geste.substr(0, geste.find(' '));
        const std::string valeur = geste.substr(blanc + 1);
        if (geste.front() == '@') {
            exiger(mac_.ecrire(geste.substr(1, blanc - 1), valeur + "\n"),
                   "le fait du geste « " + geste + " » ne s'écrit pas");
            return;
        }
        dire("clic", geste);
        const std::map<std::string, std::function<void()>> verbes{
            {"suite", [this] { cliquer(""); }},
            {"fermer", [] { fermer(); }},
            {"SIGTERM", [] { std::raise(SIGTERM); }},
            {"choisir", [&] { article(valeur); }},
            {"attendre", [&] { attendre(std::atoi(valeur.c_str())); }},
            {"image", [&] { image(valeur); }},
            {"portrait", [&] { portrait(valeur); }},
            {"guide", [this] { guide(); }},
            {"finir", [this] { terminer(); }}};
        const auto connu = verbes.find(verbe);
        connu == verbes.end() ? cliquer(geste) : connu->second();
    }

    void attendre(int millisecondes) {
        reveil_ = Horloge::now() + std::chrono::milliseconds(millisecondes);
    }

    void cliquer(const std::string& bouton) {
        exiger(presser(bouton), "la page « " + page_ + " » n'a pas de bouton « " + bouton + " »");
    }

    void article(const std::string& voulu) {
        exiger(choisir(voulu), "le menu n'a pas d'article « " + voulu + " »");
    }

    void image(const std::string& complement) {
        if (!dossier_.empty()) {
            const std::string nom = nomDeFichier(page_ + " " + complement);
            const std::string chemin = cheminImage(nom);
            exiger(photographier(chemin), "l'image " + chemin + " ne s'écrit pas");
            noter(nom, transcrire(scene()));
        }
    }

    // Le banc retire la demande quand l'image est écrite.
    void portrait(const std::string& nom) {
        exiger(mac_.ecrire(kPortrait, cheminImage(nom) + "\n"),
               "la demande d'image au banc ne s'écrit pas");
    }

    // La consigne de chaque logiciel : la dernière étiquette qui n'est pas celle de la version.
    void guide() {
        for (const std::string& menu : textes("menu")) {
            std::istringstream articles(menu);
            for (std::string nom; std::getline(articles, nom);) {
                article(nom);
                noter("guide : " + nom, textes("étiquette").rbegin()[1]);
            }
        }
    }

    void terminer() {
        // Le rapport est copié quand son alerte s'est fermée.
        if (rapport_.empty()) {
            gestes_.emplace_front("finir");
            return;
        }
        const std::string utilisateur = mac_.lire("utilisateur").value_or("");
        std::error_code refus;
        fs::copy(mac_.racine() + "/Users/" + utilisateur + "/Library/Logs/Assistant Lumivia.log",
                 dossier_ + "/journal.txt", refus);
        exiger(!refus && ajouter(dossier_ + "/rapport.txt", rapport_) &&
                   mac_.ecrire("demonstration/fini", "oui\n"),
               "le journal ou le rapport ne s'écrit pas");
        conclure(EXIT_SUCCESS);
    }

    std::string cheminImage(const std::string& nom) const {
        const std::string numero = std::to_string(nombreDImages() + 1);
        static_cast<void>(mac_.ecrire("demonstration/numero", numero + "\n"));
        return dossier_ + (numero.size() < 2 ? "/0" : "/") + numero + "-" + nom + ".png";
    }

    // À la suite de ce qu'ont noté les ouvertures d'avant.
    void noter(const std::string& nom, const std::string& texte) {
        exiger(ajouter(dossier_ + "/transcription.txt", "== " + nom + "\n" + texte + "\n"),
               "la transcription ne s'écrit pas");
    }

    void dire(const char* genre, std::string texte) const {
        if (dossier_.empty()) {
            std::replace(texte.begin(), texte.end(), '\n', '\v'); // une ligne par chose dite
            std::cout << genre << '\t' << texte << std::endl;
        }
    }

    // Ce qui n'est pas arrête tout.
    void exiger(bool vrai, const std::string& sinon) {
        if (!vrai && !fini_) {
            std::cerr << "La démonstration s'arrête : " << sinon << "." << std::endl;
            static_cast<void>(mac_.ecrire("demonstration/echec", sinon + "\n"));
            conclure(EXIT_FAILURE);
        }
    }

    void conclure(int code) {
        if (!std::exchange(fini_, true)) {
            finir(code);
        }
    }

    static constexpr const char* kPortrait = "demonstration/portrait_demande";

    const faits::Mac& mac_ = faits::Mac::duProcessus();
    const std::string dossier_ = variable("LUMIVIA_DEMONSTRATION"); // vide : un récit
    Table table_ = lireGestes(variable("LUMIVIA_GESTES"));
    const std::chrono::seconds patience_ = patience();
    const Horloge::time_point naissance_ = Horloge::now();
    Horloge::time_point changement_ = naissance_;
    Horloge::time_point reveil_ = naissance_;
    std::deque<std::string> gestes_;
    std::string page_;
    std::string rapport_;
    bool fini_ = false;
};

} // namespace

void demarrer() {
    if (std::getenv("LUMIVIA_GESTES") != nullptr) {
        surveiller([unique = new Robot] { unique->regarder(); });
    }
}

} // namespace robot
