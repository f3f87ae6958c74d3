"""Interrompt une commande par Ctrl-C, TERM et HUP, à plusieurs moments : ni processus ni dossier
temporaire ne restent, et la commande menée ensuite à son terme réussit.

Utilisation : interruptions.py COMMANDE…
"""
import os
import pathlib
import signal
import subprocess
import sys
import tempfile
import time

MOMENTS = ((signal.SIGINT, 1), (signal.SIGTERM, 3), (signal.SIGHUP, 6), (0, 0))


def habitants(marque):
    """Les processus qui portent cette marque dans leur environnement."""
    for dossier in pathlib.Path("/proc").glob("[0-9]*"):
        try:
            if marque.encode() in (dossier / "environ").read_bytes():
                yield dossier.name, (dossier / "cmdline").read_text().replace("\0", " ")
        except OSError:
            pass  # un processus d'un autre, ou qui vient de finir


def fautes(signe, delai):
    """Interrompt après ce délai, comme un terminal ou un gestionnaire le ferait ; 0 : jamais."""
    with tempfile.TemporaryDirectory(prefix="interruption été ") as temporaire:
        # Un essai lancé à l'arrière-plan ou par nohup lèguerait ses signaux ignorés.
        commande = subprocess.Popen(
            ["env", "--default-signal=HUP,INT,TERM", *sys.argv[1:]],
            env=os.environ | {"TMPDIR": temporaire, "LUMIVIA_ESSAI": temporaire},
            stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE,
            process_group=0)
        time.sleep(delai)
        voulu = 128 + signe if signe and commande.poll() != 0 else 0
        if voulu and signe == signal.SIGTERM:
            commande.send_signal(signe)
        elif voulu:  # un terminal prévient tout le groupe
            os.killpg(commande.pid, signe)
        try:
            _, erreurs = commande.communicate(timeout=30 if signe else None)
        except subprocess.TimeoutExpired:
            commande.kill()
            return ["elle ne finit pas"]
        restes = list(habitants(temporaire)) + os.listdir(temporaire)
        liens = [lien for lien in pathlib.Path("/tmp").iterdir()
                 if lien.is_symlink() and os.readlink(lien).startswith(temporaire)]
        statut = [] if commande.returncode == voulu else [f"statut {commande.returncode}"]
        return statut + restes + liens + erreurs.decode().splitlines()


def main():
    mauvaises = 0
    for signe, delai in MOMENTS:
        if trouvees := fautes(signe, delai):
            mauvaises += 1
            print(f"signal {signe} après {delai} s : {trouvees}")
    return 1 if mauvaises else 0


sys.exit(main())
