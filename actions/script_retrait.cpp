#include "actions/script_retrait.hpp"

#include "support/listes.hpp"

namespace {

// La partie que sudo exécute : mettre de côté, reconstruire, dire où est la sauvegarde.
std::string partieAdministrateur(const std::vector<std::string>& extensions, bool reconstruire) {
    std::vector<std::string> chemins;
    for (const std::string& extension : extensions) {
        chemins.push_back("'" + extension + "'");
    }
    return "S=\"/Library/Application Support/Assistant Lumivia/sauvegarde-$(date "
           "+%Y%m%d-%H%M%S)\"\n"
           "mkdir -p \"$S\"\n"
           "for k in " +
           joindre(chemins, " ") +
           "; do\n"
           "  if [ -e \"$k\" ]; then mv \"$k\" \"$S/\" && echo \"mis de cote : $k\"; fi\n"
           "done\n"
           "if [ \"" +
           (reconstruire ? "oui" : "non") +
           "\" = \"oui\" ]; then\n"
           "  if [ -x /usr/bin/kmutil ]; then\n"
           "    # macOS 13 et plus : « kmutil rebuild » (validé sur Mac M). macOS 11-12 : non testé "
           "avec D2xxHelper chargé.\n"
           "    if /usr/bin/kmutil help 2>&1 | grep -q rebuild; then /usr/bin/kmutil rebuild 2>&1\n"
           "    else /usr/bin/kmutil install --update-all 2>&1; fi\n"
           "  else\n"
           "    /usr/sbin/kextcache -i / 2>&1\n"
           "  fi\n"
           "fi\n"
           "echo \"sauvegarde : $S\"";
}

// Pour un argument entre apostrophes : l'apostrophe se ferme, s'écrit échappée, se rouvre.
std::string echapperApostrophes(const std::string& texte) {
    std::string echappe;
    for (const char c : texte) {
        if (c == '\'') {
            echappe += "'\\''";
        } else {
            echappe += c;
        }
    }
    return echappe;
}

} // namespace

std::string scriptRetrait(const std::string& fichierResultat,
                          const std::vector<std::string>& extensions, bool reconstruire) {
    return "#!/bin/zsh\n"
           "clear\n"
           "R='" +
           fichierResultat +
           "'\n"
           "rm -f \"$R\"\n"
           "echo \"Assistant Lumivia : retrait de l'ancien pilote FTDI\"\n"
           "echo\n"
           "echo \"1. Tapez le mot de passe de votre session Mac,\"\n"
           "echo \"   puis appuyez sur la touche Entrée.\"\n"
           "echo \"   Les caractères ne s'affichent pas : c'est normal.\"\n"
           "echo \"2. Si une fenêtre redemande le mot de passe :\"\n"
           "echo \"   tapez-le et cliquez sur OK.\"\n"
           "echo\n"
           "sudo -p \"Mot de passe : \" /bin/sh -c '" +
           echapperApostrophes(partieAdministrateur(extensions, reconstruire)) +
           "' 2>&1 | tee \"$R.tmp\"\n"
           "mv \"$R.tmp\" \"$R\"\n"
           "echo\n"
           "echo \"Terminé. Cette fenêtre va se fermer.\"\n"
           "sleep 3\n"
           "( sleep 1; osascript -e 'tell application \"Terminal\"' -e 'close (every window whose "
           "name contains \"retirer-ancien-pilote\")' -e 'if (count windows) is 0 then quit' -e "
           "'end tell' ) >/dev/null 2>&1 &!\n"
           "exit 0";
}
