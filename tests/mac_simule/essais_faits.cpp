// Les chemins de Mac dans un texte : leur préfixe mis et ôté.

#include "mac_simule/racine/chemins.hpp"

#include "mac_essai.hpp"

using namespace mac_simule;

TEST(Chemins, UnCheminEstPrecedeUneFoisASonDebut) {
    for (const auto& [avant, apres] : std::initializer_list<std::pair<const char*, const char*>>{
             {"R='/Users/a b é/Library/x'", "R='/P/Users/a b é/Library/x'"},
             {"S=\"/Library/A B-$(date)\"", "S=\"/P/Library/A B-$(date)\""},
             {"for k in '\\''/Library/D.kext'\\''", "for k in '\\''/P/Library/D.kext'\\''"},
             {"[ -x /usr/bin/kmutil ]", "[ -x /P/usr/bin/kmutil ]"},
             {"/usr/sbin/kextcache -i / 2>&1", "/P/usr/sbin/kextcache -i / 2>&1"},
             {"PATH=/usr/bin:/usr/sbin", "PATH=/P/usr/bin:/P/usr/sbin"},
             {"#!/bin/zsh\n/bin/sh /tmp/x >/dev/null", "#!/bin/zsh\n/bin/sh /tmp/x >/dev/null"},
             {"$HOME/Library ~/Library é/Library", "$HOME/Library ~/Library é/Library"},
             {"/Librarys /usr/binaire /Users", "/Librarys /usr/binaire /P/Users"},
             {"/private/Library ./Users", "/private/Library ./Users"}}) {
        EXPECT_EQ(avecPrefixe(avant, "/P"), apres);
    }
}

TEST(Chemins, LePrefixeEstOteOuQueLeTexteSoitCoupe) {
    const std::string texte = "mis : /tmp/m/Library/x /tmp/m/Users /tmp/mac /tmp/m fin/tmp/";
    const std::string attendu = "mis : /Library/x /Users /tmp/mac /tmp/m fin/tmp/";
    for (std::size_t coupe = 0; coupe <= texte.size(); ++coupe) {
        FiltrePrefixe filtre("/tmp/m");
        std::string sortie = filtre.passer(texte.substr(0, coupe));
        sortie += filtre.passer(texte.substr(coupe));
        sortie += filtre.finir();
        EXPECT_EQ(sortie, attendu) << coupe;
    }
}
