# Les processus de la session ouverte sur le Mac simulé : tous descendent du lanceur, qui recueille
# aussi ceux qui se sont détachés.

import contextlib
import ctypes
import os
import pathlib
import signal
import time

EXECUTABLE = "Assistant Lumivia"
PATIENCE = 10  # secondes laissées à un assistant qui se ferme
PR_SET_CHILD_SUBREAPER = 36
ARRETS = (signal.SIGHUP, signal.SIGINT, signal.SIGTERM)


# Un processus peut finir avant d'être lu, ou pendant : ce qui ne se lit pas est vide.
def lire_proc(pid, nom):
    with contextlib.suppress(OSError):
        return pathlib.Path("/proc", str(pid), nom).read_bytes()
    return b""


# L'état et le parent, d'après /proc/PID/stat, dont le nom entre parenthèses peut tout contenir.
def etat_et_parent(pid):
    _, _, suite = lire_proc(pid, "stat").rpartition(b") ")
    etat, parent, *_ = suite.split(maxsplit=2) or (b"X", 0)
    return etat, int(parent)


def descendants():
    enfants = {}
    for nom in os.listdir("/proc"):
        if nom.isdecimal():
            enfants.setdefault(etat_et_parent(nom)[1], []).append(int(nom))
    trouves = list(enfants.get(os.getpid(), ()))
    for pid in trouves:
        trouves += enfants.get(pid, ())
    return trouves


def prevenir(pids, signe):
    for pid in pids:
        with contextlib.suppress(OSError):  # déjà parti
            os.kill(pid, signe)


# `racine` est absolue, sans lien. `fin` est le code du dernier assistant fini, ou l'opposé du signal
# qui l'a tué.
class Session:
    def __init__(self, racine):
        self.racine, self.fin = racine, 0
        self.assistant = f"{racine}/Applications/Assistant Lumivia.app/Contents/MacOS/{EXECUTABLE}"
        self.assistants = set()  # ceux que l'on a reconnus vivants
        signal.pthread_sigmask(signal.SIG_BLOCK, (signal.SIGCHLD, *ARRETS))
        # Connu de tout noyau de Debian 12 : n'échoue pas.
        ctypes.CDLL(None).prctl(PR_SET_CHILD_SUBREAPER, 1)
        os.environ["LUMIVIA_MAC"] = racine

    # Démarre un programme (chemin de la machine) ; faux quand il ne peut pas l'être.
    def lancer(self, programme, arguments):
        try:
            # Python ignore SIGPIPE et SIGXFSZ pour lui-même.
            pid = os.posix_spawn(programme, [programme, *arguments], os.environ, setsigmask=(),
                                 setsigdef=(signal.SIGPIPE, signal.SIGXFSZ))
        except OSError:
            return False
        if programme == self.assistant:
            self.assistants.add(pid)
        return True

    # Un processus fini n'a plus d'arguments mais garde son nom, que le noyau coupe à quinze octets.
    def est_assistant(self, pid):
        return (pid in self.assistants
                or os.fsencode(self.assistant) + b"\0" in lire_proc(pid, "cmdline")
                or lire_proc(pid, "comm") == EXECUTABLE[:15].encode() + b"\n")

    # Sa ligne de commande nomme la racine. Celle d'un programme que le noyau charge est vide ;
    # celle d'un processus fini aussi, et tant que le nôtre n'est pas recueilli, ce qu'il a pu
    # lancer en finissant n'a pas été cherché.
    def est_du_mac(self, pid):
        if commande := lire_proc(pid, "cmdline"):
            return os.fsencode(self.racine) + b"/" in commande
        etat, parent = etat_et_parent(pid)
        return etat != b"Z" or parent == os.getpid()

    def recueillir(self):
        with contextlib.suppress(ChildProcessError):  # il n'y a plus personne
            while fini := os.waitid(os.P_ALL, 0, os.WEXITED | os.WNOHANG | os.WNOWAIT):
                assistant = self.est_assistant(fini.si_pid)
                _, etat = os.waitpid(fini.si_pid, 0)
                self.assistants.discard(fini.si_pid)
                if assistant:
                    self.fin = os.waitstatus_to_exitcode(etat)

    # Attend un événement ou un dixième de seconde, et recueille les processus finis ; rend le signal
    # d'arrêt reçu, s'il y en a un.
    def attendre(self):
        recu = signal.sigtimedwait((signal.SIGCHLD, *ARRETS), 0.1)
        self.recueillir()
        return recu.si_signo if recu and recu.si_signo in ARRETS else None

    # Ce qui tourne encore du Mac simulé : « assistant », « autre » (une fenêtre du Terminal, un
    # outil) ou rien. Ce qu'une bibliothèque a pu lancer de la machine (un bus de session) n'en est
    # pas : personne ne l'attend, `terminer` y met fin.
    def reste(self):
        tous = descendants()
        # Un outil que l'assistant vient de lancer n'y reste pas.
        self.assistants = set(filter(self.est_assistant, tous))
        if self.assistants:
            return "assistant"
        return "autre" if any(map(self.est_du_mac, tous)) else None

    def terminer_ceux(self, choisi, secondes):
        limite = time.monotonic() + secondes
        prevenus = set()
        while restent := set(filter(choisi, descendants())):
            prevenir(restent - prevenus, signal.SIGTERM)
            prevenus |= restent
            if time.monotonic() > limite:
                return False
            self.attendre()
        return True

    # Met fin à tout : l'assistant d'abord, puis le reste ; ce qui s'entête est tué.
    def terminer(self):
        self.terminer_ceux(self.est_assistant, PATIENCE)
        while not self.terminer_ceux(lambda _: True, 2):
            prevenir(descendants(), signal.SIGKILL)
        if self.fin == -signal.SIGTERM:
            self.fin = 0  # il a fait ce qu'on lui demandait
