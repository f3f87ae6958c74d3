#include "dmx/test_dmx.hpp"
#include "plateforme/boucle.hpp"
#include "plateforme/chargeur.hpp"
#include "plateforme/paquet.hpp"
#include "support/journal.hpp"

#include <array>
#include <utility>

namespace {

constexpr std::uint32_t kDebitDMX512 = 250'000;
constexpr unsigned kDureeTramesNoires = 150'000; // µs
constexpr unsigned kAttenteFinDeTrame = 100'000; // µs
constexpr unsigned kPatience = 1'000'000;        // µs, pour un appel qui ne revient pas
constexpr unsigned kPasDePatience = 1'000;       // µs

constexpr const char* kIntrouvable =
    "La bibliothèque de test est introuvable dans l'assistant. Contactez Voltaris.";
constexpr const char* kIncomplete = "La bibliothèque de test est incomplète. Contactez Voltaris.";
constexpr const char* kEmetteurFerme =
    "Impossible d'ouvrir l'émetteur. Fermez votre logiciel lumière (il peut occuper l'émetteur), "
    "débranchez et rebranchez le câble USB, puis réessayez.";

constexpr std::array<const char*, 6> kFonctionsOuverture{
    "FT_Open",           "FT_ResetDevice", "FT_SetBaudRate", "FT_SetDataCharacteristics",
    "FT_SetFlowControl", "FT_Purge"};

std::string cheminBibliotheque() {
    const auto dossier = plateforme::cheminFrameworksPrives();
    return dossier ? *dossier + "/libftd2xx.dylib" : std::string();
}

template <typename Fonction>
Fonction fonction(void* lib, const char* nom) {
    return reinterpret_cast<Fonction>(plateforme::symbole(lib, nom));
}

} // namespace

std::shared_ptr<TestDMX> TestDMX::creer() {
    return std::shared_ptr<TestDMX>(new TestDMX);
}

TestDMX::~TestDMX() {
    // Un fil encore là tient l'objet en vie : c'est lui qui le détruit, en partant.
    if (thread_.joinable()) {
        thread_.detach();
    }
}

std::optional<std::string> TestDMX::ouvrir() {
    if (handle_ != nullptr) {
        return std::nullopt;
    }
    const plateforme::Chargement chargement = plateforme::charger(cheminBibliotheque());
    lib_ = chargement.bibliotheque;
    if (lib_ == nullptr) {
        Journal::shared().note("D2XX introuvable : " + chargement.erreur);
        return kIntrouvable;
    }
    for (const char* nom : kFonctionsOuverture) {
        if (plateforme::symbole(lib_, nom) == nullptr) {
            return kIncomplete;
        }
    }
    FT_HANDLE ouvert = nullptr;
    const FT_STATUS statut = fonction<FonctionOpen>(lib_, "FT_Open")(0, &ouvert);
    Journal::shared().note("FT_Open : statut " + std::to_string(statut));
    if (statut != FT_OK || ouvert == nullptr) {
        return kEmetteurFerme;
    }
    handle_ = ouvert;
    configurer();
    return std::nullopt;
}

// Un réglage refusé n'empêche pas l'essai : le projecteur, et l'utilisateur devant lui, diront si
// le signal passe.
void TestDMX::configurer() {
    fonction<FonctionPoignee>(lib_, "FT_ResetDevice")(handle_);
    fonction<FonctionSetBaudRate>(lib_, "FT_SetBaudRate")(handle_, kDebitDMX512);
    fonction<FonctionSetDataCharacteristics>(lib_, "FT_SetDataCharacteristics")(
        handle_, FT_BITS_8, FT_STOP_BITS_2, FT_PARITY_NONE);
    fonction<FonctionSetFlowControl>(lib_, "FT_SetFlowControl")(handle_, FT_FLOW_NONE, 0, 0);
    fonction<FonctionPurge>(lib_, "FT_Purge")(handle_, FT_PURGE_RX | FT_PURGE_TX);
}

void TestDMX::fermer() {
    if (arreterLeFil() && handle_ != nullptr) {
        if (const auto fermeture = fonction<FonctionPoignee>(lib_, "FT_Close")) {
            fermeture(handle_);
        }
    }
    handle_ = nullptr;
}

bool TestDMX::arreterLeFil() {
    const std::shared_ptr<FilDesTrames> fil = std::exchange(actif_, nullptr);
    if (fil == nullptr) {
        return true;
    }
    fixerMotif(Motif::noir);
    plateforme::dormirMicrosecondes(kDureeTramesNoires);
    fil->consigne = FilDesTrames::Consigne::finir;
    plateforme::dormirMicrosecondes(kAttenteFinDeTrame);
    // D'ordinaire le fil est déjà parti ; l'émetteur ne se ferme pas sous une écriture lente.
    for (unsigned attendu = 0; !fil->parti && attendu < kPatience; attendu += kPasDePatience) {
        plateforme::dormirMicrosecondes(kPasDePatience);
    }
    if (!fil->parti) {
        fil->consigne = FilDesTrames::Consigne::partir;
        thread_.detach();
        return false;
    }
    thread_.join();
    return true;
}
