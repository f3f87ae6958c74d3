#include "app/assistant.hpp"

#include "plateforme/paquet.hpp"

#include <algorithm>

namespace {

constexpr double kLargeurFenetre = 760;
constexpr double kHauteurFenetre = 620;
constexpr double kMargeHorizontale = 36;
constexpr double kLargeurTexte = 680;
constexpr double kLargeurLigne = 660;
constexpr double kTailleTexte = 14;

using plateforme::Etiquette;
using plateforme::Orientation;
using plateforme::Pile;

// Largeur qui garde les proportions ; une hauteur trop petite pour être vraie compte pour un point.
double largeurImage(plateforme::TailleImage taille, double hauteur) {
    return taille.largeur * hauteur / std::max(taille.hauteur, 1.0);
}

std::string texteVersion() {
    const plateforme::ValeurInfo version = plateforme::valeurInfo("CFBundleShortVersionString");
    return "Version " +
           (version.genre == plateforme::ValeurInfo::Genre::texte ? version.texte : "?");
}

} // namespace

std::shared_ptr<Assistant> Assistant::creer() {
    return std::shared_ptr<Assistant>(new Assistant);
}

Assistant::Assistant()
    : fenetre_("Assistant Lumivia — Voltaris", kLargeurFenetre, kHauteurFenetre),
      titre_(Etiquette::simple("")), texte_(Etiquette::multiligne("")),
      zone_(Orientation::verticale), boutons_(Orientation::horizontale), test_(TestDMX::creer()),
      consigneLogiciel_(Etiquette::multiligne("")) {
    fenetre_.surFermeture([this] { fermetureFenetre(); });
    construire();
    page("Bienvenue",
         "Cet assistant prépare votre Mac pour l'émetteur DMX Voltaris (entrée USB « Open DMX »)."
         "\n\nIl vérifie votre Mac, retire si besoin les anciens pilotes qui ne sont plus utiles, "
         "puis vous aide à vérifier que votre projecteur reçoit bien le signal.\n\nAvant de "
         "commencer :\n  1.  Branchez l'émetteur sur un port USB du Mac.\n  2.  Fermez votre "
         "logiciel lumière (Millumin, QLC+, Lightkey…).",
         {{"Quitter", &Assistant::quitter}, {"Analyser mon Mac", &Assistant::analyser}});
    fenetre_.centrer();
}

void Assistant::construire() {
    titre_.setPolice(22, true);
    texte_.setPolice(kTailleTexte, false);
    texte_.setLargeurMaximale(kLargeurTexte);
    zone_.alignerAuDebut();
    zone_.setEspacement(10);
    boutons_.setEspacement(12);

    const Pile barre = barreDuBas();
    const Pile principale(Orientation::verticale);
    for (const plateforme::Vue& vue : std::initializer_list<plateforme::Vue>{
             titre_, texte_, zone_, plateforme::espace(Orientation::verticale), boutons_, barre}) {
        principale.ajouter(vue);
    }
    principale.alignerAuDebut();
    principale.setEspacement(16);
    principale.setMarges(28, kMargeHorizontale, 18, kMargeHorizontale);
    fenetre_.poser(principale, {barre, boutons_}, 2 * kMargeHorizontale);
}

Pile Assistant::barreDuBas() {
    const plateforme::Bouton rapport("Copier le rapport pour le support",
                                     [this] { copierRapport(); });
    rapport.setPetit();
    const Etiquette version = Etiquette::simple(texteVersion());
    version.setCouleurSecondaire();
    version.setPolice(11, false);

    Pile barre(Orientation::horizontale);
    barre.ajouter(rapport);
    barre.ajouter(plateforme::espace(Orientation::horizontale));
    barre.ajouter(version);
    return barre;
}

void Assistant::page(const std::string& titre, const std::string& texte, const Boutons& boutons,
                     std::optional<std::size_t> parDefaut) {
    minuteur_.reset();
    ++pageCourante_;
    titre_.setTexte(titre);
    texte_.setTexte(texte);
    zone_.vider();
    poserBoutons(boutons, parDefaut.value_or(boutons.size() - 1));
}

void Assistant::repeter(double intervalle, std::function<void()> action) {
    minuteur_ = std::make_unique<plateforme::Minuteur>(
        intervalle, [faible = weak_from_this(), action = std::move(action)] {
            if (const std::shared_ptr<Assistant> assistant = faible.lock()) {
                action();
            }
        });
}

void Assistant::page2Boutons(const Boutons& boutons) {
    poserBoutons(boutons, boutons.size() - 1);
}

void Assistant::poserBoutons(const Boutons& boutons, std::size_t parDefaut) {
    boutons_.vider();
    boutons_.ajouter(plateforme::espace(Orientation::horizontale));
    for (std::size_t i = 0; i < boutons.size(); ++i) {
        const plateforme::Bouton bouton(boutons[i].titre,
                                        [this, action = boutons[i].action] { (this->*action)(); });
        if (i == parDefaut) {
            bouton.setParDefaut();
        }
        boutons_.ajouter(bouton);
    }
}

void Assistant::ligne(const std::string& icone, const std::string& texte) {
    const Etiquette etiquette = Etiquette::multiligne("");
    etiquette.setTexte(icone + "  " + texte);
    etiquette.setPolice(kTailleTexte, false);
    etiquette.setLargeurMaximale(kLargeurLigne);
    zone_.ajouter(etiquette);
}

void Assistant::rangeeImages(const std::vector<Illustration>& images, double hauteur,
                             double espacement) {
    const Pile rangee(Orientation::horizontale);
    rangee.alignerEnHaut();
    rangee.setEspacement(espacement);
    zone_.ajouter(rangee);
    for (const Illustration& illustration : images) {
        const auto chemin = plateforme::cheminRessource(illustration.nom, "png");
        const auto image =
            chemin ? plateforme::VueImage::lire(*chemin, illustration.description) : std::nullopt;
        if (image) {
            const plateforme::TailleImage taille = image->tailleImage();
            image->imposerTaille(largeurImage(taille, hauteur), hauteur);
            rangee.ajouter(*image);
        }
    }
}
