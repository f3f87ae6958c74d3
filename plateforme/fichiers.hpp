// Fichiers et dossiers, par chemins absolus de Mac (UTF-8).
//
// Une opération qui peut échouer rend une Erreur : absente quand tout va bien, sinon une
// phrase française qui nomme le chemin et la cause. Rien ici ne lève d'exception vers
// l'appelant. Toutes ces fonctions sont sans état et s'appellent depuis n'importe quel fil.
#pragma once

#include <optional>
#include <string>

namespace plateforme {

using Erreur = std::optional<std::string>;

// Vrai quand quelque chose (fichier, dossier, cible d'un lien) existe à ce chemin.
bool existe(const std::string& chemin);

// Vrai quand le chemin mène à un fichier ordinaire que l'utilisateur peut exécuter.
bool estExecutable(const std::string& chemin);

// Contenu entier d'un fichier ordinaire ; absent quand il manque, ne se lit pas, n'est pas un
// fichier ou dépasse `limite` octets.
[[nodiscard]] std::optional<std::string> lireFichier(const std::string& chemin, std::size_t limite);

// Crée le dossier et ceux qui lui manquent au-dessus ; un dossier déjà là n'est pas une erreur.
[[nodiscard]] Erreur creerDossiers(const std::string& chemin);

// Écrit par un fichier temporaire voisin, qui remplace ensuite la cible : on voit l'ancien
// contenu ou le nouveau, jamais une moitié. En cas d'échec la cible est intacte et aucun fichier
// temporaire ne reste ; celui qu'un programme tué a laissé part à l'écriture suivante.
[[nodiscard]] Erreur ecrireAtomiquement(const std::string& chemin, const std::string& contenu);

// Écrit sur place, en remplaçant l'ancien contenu. Une écriture interrompue ne laisse rien : mieux
// vaut un fichier absent que sa moitié.
[[nodiscard]] Erreur ecrire(const std::string& chemin, const std::string& contenu);

// Permissions POSIX (par exemple 0755).
[[nodiscard]] Erreur changerPermissions(const std::string& chemin, unsigned permissions);

// Retire un fichier, un lien (jamais ce qu'il désigne), ou un dossier avec tout son contenu ; rien
// à ce chemin n'est pas une erreur. S'arrête au premier refus.
[[nodiscard]] Erreur supprimer(const std::string& chemin);

// Ôte, autant que possible, les fichiers temporaires voisins de celui-ci que des programmes tués
// ont laissés.
void oterTemporaires(const std::string& chemin);

// Faux quand le dernier octet du fichier n'est pas une fin de ligne : une écriture y a été coupée.
// Vrai quand il n'y a rien à lire.
bool finitUneLigne(const std::string& chemin);

enum class Ajout { fait, absent, echec };

// Ajoute les octets à la fin d'un fichier existant, en une seule écriture O_APPEND : les lignes de
// deux programmes ne se mêlent pas. `absent` quand le fichier n'existe pas encore.
[[nodiscard]] Ajout ajouterALaFin(const std::string& chemin, const std::string& octets);

// Crée le fichier avec ce contenu, et seulement s'il n'existe pas : faux quand un autre l'a créé
// entre-temps ou que l'écriture a échoué. N'écrase jamais rien. Le fichier paraît d'un coup, sauf
// sur un disque qui ne connaît pas les liens.
[[nodiscard]] bool creerSansEcraser(const std::string& chemin, const std::string& octets);

// Dossier personnel de l'utilisateur, sans barre finale.
std::string dossierPersonnel();

} // namespace plateforme
