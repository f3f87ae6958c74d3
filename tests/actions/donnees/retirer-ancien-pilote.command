#!/bin/zsh
clear
R='/Users/Zoé du son/Library/Application Support/Assistant Lumivia/resultat-retrait.txt'
rm -f "$R"
echo "Assistant Lumivia : retrait de l'ancien pilote FTDI"
echo
echo "1. Tapez le mot de passe de votre session Mac,"
echo "   puis appuyez sur la touche Entrée."
echo "   Les caractères ne s'affichent pas : c'est normal."
echo "2. Si une fenêtre redemande le mot de passe :"
echo "   tapez-le et cliquez sur OK."
echo
sudo -p "Mot de passe : " /bin/sh -c 'S="/Library/Application Support/Assistant Lumivia/sauvegarde-$(date +%Y%m%d-%H%M%S)"
mkdir -p "$S"
for k in '\''/Library/Extensions/D2xxHelper.kext'\'' '\''/Library/Extensions/FTDIUSBSerialDriver.kext'\'' '\''/Library/Extensions/FTDIKext.kext'\''; do
  if [ -e "$k" ]; then mv "$k" "$S/" && echo "mis de cote : $k"; fi
done
if [ "oui" = "oui" ]; then
  if [ -x /usr/bin/kmutil ]; then
    # macOS 13 et plus : « kmutil rebuild » (validé sur Mac M). macOS 11-12 : non testé avec D2xxHelper chargé.
    if /usr/bin/kmutil help 2>&1 | grep -q rebuild; then /usr/bin/kmutil rebuild 2>&1
    else /usr/bin/kmutil install --update-all 2>&1; fi
  else
    /usr/sbin/kextcache -i / 2>&1
  fi
fi
echo "sauvegarde : $S"' 2>&1 | tee "$R.tmp"
mv "$R.tmp" "$R"
echo
echo "Terminé. Cette fenêtre va se fermer."
sleep 3
( sleep 1; osascript -e 'tell application "Terminal"' -e 'close (every window whose name contains "retirer-ancien-pilote")' -e 'if (count windows) is 0 then quit' -e 'end tell' ) >/dev/null 2>&1 &!
exit 0