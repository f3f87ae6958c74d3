// L'assistant : l'unique fenêtre, l'état que partagent les pages, et le cadre des pages.
//
// Une page n'est pas un objet : la montrer, c'est remplir autrement la même fenêtre (titre, texte,
// zone, boutons). Chaque famille de pages a son fichier ; ses membres sont déclarés ici. Tout se
// passe sur le fil principal. L'assistant est créé au lancement et vit jusqu'à la fin du processus.
#pragma once

#include "app/navigation.hpp"
#include "diagnostic/diagnostic.hpp"
#include "dmx/test_dmx.hpp"
#include "plateforme/boucle.hpp"
#include "plateforme/vues.hpp"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class Assistant : public std::enable_shared_from_this<Assistant> {
public:
    // Construit la fenêtre, encore invisible, et y montre la page de bienvenue.
    static std::shared_ptr<Assistant> creer();
    Assistant(const Assistant&) = delete;
    Assistant& operator=(const Assistant&) = delete;

    // Ce que fait « Analyser mon Mac », pour une ouverture qui suit un redémarrage.
    void analyserMaintenant() { analyser(); }

    plateforme::Fenetre& fenetre() { return fenetre_; }

    // Texte de l'heure de démarrage du Mac, comparé en bloc et jamais lu : il change à chaque
    // démarrage.
    static std::string heureDemarrage();

private:
    using Message = void (Assistant::*)();

    // Le titre d'un bouton et le message qu'il envoie à l'assistant.
    struct DescriptionBouton {
        std::string titre;
        Message action;
    };

    using Boutons = std::vector<DescriptionBouton>;

    Assistant();

    // Le cadre des pages (assistant.cpp).
    void construire();
    plateforme::Pile barreDuBas();
    // Remplace la page : arrête le minuteur, vide la zone. Le bouton d'index `parDefaut`, ou le
    // dernier, répond à Retour.
    void page(const std::string& titre, const std::string& texte, const Boutons& boutons,
              std::optional<std::size_t> parDefaut = std::nullopt);
    // Refait `action` toutes les `intervalle` secondes, jusqu'à la page suivante.
    void repeter(double intervalle, std::function<void()> action);
    // Remplace les seuls boutons ; le dernier répond à Retour.
    void page2Boutons(const Boutons& boutons);
    void ligne(const std::string& icone, const std::string& texte);
    void poserBoutons(const Boutons& boutons, std::size_t parDefaut);

    // Une rangée d'images du paquet, de cette hauteur ; une image absente ou illisible est sautée.
    struct Illustration {
        const char* nom;
        const char* description;
    };

    void rangeeImages(const std::vector<Illustration>& images, double hauteur, double espacement);

    // Analyse et résultat (pages_analyse.cpp).
    // Analyse le Mac en arrière-plan, puis passe à `suite` sur le fil principal. La suite d'une
    // page quittée entre-temps est abandonnée : deux analyses qui finissent ensemble n'agissent
    // qu'une fois.
    void analyserPuis(std::function<void(const Diagnostic&)> suite);
    void analyser();
    void montrerResultat(const Diagnostic& resultat);

    // Navigation et page « Branchez l'émetteur » (pages_navigation.cpp).
    void suivante();
    void continuerApres(Etape achevee, bool redemarrage);
    static Message message(PageSuivante page);
    void pageBrancher();

    // Retrait de l'ancien pilote (pages_retrait.cpp).
    void pageNettoyageAction();
    void imagesRetrait();
    void retirer();
    void attendreResultat(double debut);
    void retraitFini(bool ok, const std::string& sortie);
    void retraitReussi();
    void pageEchec();

    // Extension DriverKit (page_dext.cpp).
    void pageDext();
    void ouvrirReglages();
    void verifierDextBouton();
    void verifierDext(bool silencieux);
    void dextVerifie(bool actif, bool silencieux);

    // Redémarrage (page_redemarrage.cpp).
    bool redemarrageEnAttente() const;
    void marquerRedemarrage() const;
    void oublierRedemarrage() const;
    void pageRedemarrage();
    void redemarrer();

    // Test du projecteur, réussite, dépannage (pages_test.cpp).
    void pageTest();
    void envoyer(TestDMX::Motif motif);
    void allumer();
    void eteindre();
    void clignoter();
    void reussite();
    void logicielChoisi(int index);
    void depannage();
    void refaireTest();

    // Rapport et fin (rapport_support.cpp).
    void copierRapport();
    void quitter();
    void fermetureFenetre();

    plateforme::Fenetre fenetre_;
    plateforme::Etiquette titre_;
    plateforme::Etiquette texte_;
    plateforme::Pile zone_;
    plateforme::Pile boutons_;
    Diagnostic diagnostic_;
    std::shared_ptr<TestDMX> test_;
    std::unique_ptr<plateforme::Minuteur> minuteur_;
    const std::string cleRedemarrage_ = "redemarrageEnAttenteDepuisDemarrage";
    plateforme::Etiquette consigneLogiciel_;
    // Compte les pages montrées : une analyse dont la page a été quittée se reconnaît à lui.
    unsigned long pageCourante_ = 0;
    int analysesEnCours_ = 0; // chacune sur un fil d'arrière-plan
};
