// Une analyse du Mac : l'instantané de tout ce qui décide de sa préparation, et ses verdicts.
//
// C'est une valeur : la copier copie tout. Les verdicts suivent toujours les champs.
#pragma once

#include "plateforme/systeme_exploitation.hpp"

#include <array>
#include <string>
#include <vector>

struct Diagnostic {
    // Une fiche neuve porte la version du système en marche, et rien d'autre.
    plateforme::VersionMacOS versionMacOS = plateforme::versionSysteme();
    bool puceApple = false;
    std::string modele;
    std::vector<std::string> emetteurs; // numéro de série de chacun, ou « sans numéro »
    bool d2xxHelperFichier = false;
    bool d2xxHelperCharge = false;
    std::vector<std::string> anciensKextsFTDI; // chemins présents, dans l'ordre de anciensKexts
    bool dextFTDIActif = false;
    bool dextFTDIPresent = false;

    static constexpr const char* cheminD2xxHelper = "/Library/Extensions/D2xxHelper.kext";
    static constexpr std::array<const char*, 2> anciensKexts{
        "/Library/Extensions/FTDIUSBSerialDriver.kext", "/Library/Extensions/FTDIKext.kext"};

    // Interroge le Mac, une sonde après l'autre, et rend une fiche complète. Ne change rien au Mac
    // et n'écrit rien au journal. Bloque le fil appelant quelques secondes ; n'importe quel fil.
    // Une sonde qui échoue laisse la valeur qui veut dire que rien n'a été trouvé.
    static Diagnostic analyser();

    // Les émetteurs branchés (USB 0x0403:0x6001), dans l'ordre du registre. N'importe quel fil.
    static std::vector<std::string> emetteursBranches();

    bool macOS11ouPlus() const { return versionMacOS.majorVersion > 10; }

    bool nettoyageNecessaire() const {
        return d2xxHelperFichier || d2xxHelperCharge || !anciensKextsFTDI.empty();
    }

    bool desactivationDextNecessaire() const { return dextFTDIActif; }

    // Ni l'absence d'émetteur ni une extension installée mais inactive n'empêchent d'être prêt.
    bool toutEstPret() const { return !nettoyageNecessaire() && !dextFTDIActif; }

    // Version de macOS en trois nombres : « 14.5.0 ».
    std::string texteMacOS() const;

    // Les cinq lignes que lit le support, sans fin de ligne après la dernière.
    std::string rapport() const;
};
