"""Les fautes à mettre dans plateforme/macos, une à la fois, et l'essai de GNUstep qui doit voir chacune.

Elles sont choisies, non tirées au hasard : l'adaptateur ne décide rien, et se trompe sur ce qu'il tient,
ce qu'il rend, l'ordre et les noms de ses appels. mutants.py les met après les siennes.
"""
import collections
import pathlib

# `tete` est ce que la faute déclare d'un système dont l'adaptateur ne se sert pas.
Faute = collections.namedtuple("Faute", "fichier essai avant apres tete", defaults=("",))
COUTURE = "\nnamespace plateforme {\n"  # où se met cette tête

BOUCLES = """
@interface NSRunLoop : NSObject
+ (NSRunLoop*)mainRunLoop;
- (void)addTimer:(NSTimer*)minuteur forMode:(NSString*)mode;
@end
"""

# Par fichier et par essai : ce qui est remplacé, où qu'il soit une seule fois, et par quoi.
TABLE = {
    ("fenetre.mm", "Proprietes.laFenetreTientSonDelegueEtSurvitASaFermeture"): [
        ("native_->delegue = [[", "native_->fenetre.delegate = [["),
        ("releasedWhenClosed = NO", "releasedWhenClosed = YES"),
        ("    fermeture_();", ""),
    ],
    ("fenetre.mm", "Proprietes.tabAtteintLesBoutonsDUneNouvellePage"): [
        ("autorecalculatesKeyViewLoop = YES", "autorecalculatesKeyViewLoop = NO"),
    ],
    ("fenetre.mm", "pret.oui"): [("fenetre.title = macos::versNSString(titre);", "")],
    ("vues.mm", "Proprietes.unControleTientSaCible"): [
        ("objc_setAssociatedObject(controle, &attache, cible, OBJC_ASSOCIATION_RETAIN_NONATOMIC);",
         "static_cast<void>(attache);"),
        ("controle.target = cible;", ""),
        ("menu.indexOfSelectedItem", "menu.indexOfSelectedItem - 1"),
    ],
    ("vues.mm", "Proprietes.laFinDUnDoubleClicEtUneToucheTenueNeComptentPas"): [
        ("clics.accepte(evenement.clickCount)", "true"),
        ("return !evenement.ARepeat", "return true"),
        ('keyEquivalent = @"\\r"', 'keyEquivalent = @"r"'),
    ],
    ("etiquette.mm", "pret.oui"): [
        ("gras ? [NSFont boldSystemFontOfSize:taille] : [NSFont systemFontOfSize:taille]",
         "[NSFont systemFontOfSize:taille]"),
        ("champ.textColor = NSColor.secondaryLabelColor;", ""),
    ],
    ("etiquette.mm", "Proprietes.unTexteQuiNEstPasDeLUTF8DevientVide"): [
        ("champ.stringValue = macos::versNSString(texte);", ""),
    ],
    ("etiquette.mm", "Proprietes.uneEtiquetteComposeSonTexteEtEnRendLOrigine"): [
        ("ligne.substr(0, retraitSuspendu(ligne))", "std::string()"),
        ("[choisis setObject:champ.font forKey:NSFontAttributeName];", ""),
        ("[choisis setObject:champ.textColor forKey:NSForegroundColorAttributeName];", ""),
        ("[choisis setObject:paragraphe forKey:NSParagraphStyleAttributeName];", ""),
        ("lie = lier(texte)", "lie = texte"),
        ("plateforme::macos::sansLiens(self.stringValue)", "self.stringValue"),
        ("allowsEditingTextAttributes = YES", "allowsEditingTextAttributes = NO"),
        ("[NSFont systemFontOfSize:taille];\n    remontrer(champ);",
         "[NSFont systemFontOfSize:taille];"),
        ("secondaryLabelColor;\n    remontrer(champ);", "secondaryLabelColor;"),
    ],
    ("fenetre.mm", "Proprietes.uneEtiquetteComposeSonTexteEtEnRendLOrigine"): [
        ("return editeur_;", "return nil;"),
        ("plateforme::macos::sansLiens(choisi)", "choisi"),
        ("[pressePapiers clearContents];", ""),
    ],
    ("pile.mm", "Proprietes.uneActionPeutDetruireSaPageEtRienNEnReste"): [
        ("CFAutorelease((__bridge_retained CFTypeRef)vues);",
         "static_cast<void>((__bridge_retained CFTypeRef)vues);"),
        ("[vue removeFromSuperview];", "static_cast<void>(vue);"),
    ],
    ("boucle.mm", "Proprietes.unMinuteurSArreteMemeDepuisSonBattement"): [
        ("repeats:YES", "repeats:NO"),
        ("[natif_->minuteur invalidate];", ""),
    ],
    ("boucle.mm", "Proprietes.lesTachesPassentDansLOrdreSurLeFilPrincipal"): [
        ("dispatch_get_main_queue()", "dispatch_get_global_queue(QOS_CLASS_DEFAULT, 0)"),
        ("dispatch_get_global_queue(QOS_CLASS_DEFAULT, 0)", "dispatch_get_main_queue()"),
    ],
    ("boucle.mm", "Alerte.retientLesTachesSuivantesEtLesMinuteurs"): [
        ("block:bloc];", "block:bloc];\n    [[NSRunLoop mainRunLoop] addTimer:natif_->minuteur "
                         'forMode:@"NSModalPanelRunLoopMode"];', BOUCLES),
        ("executerSur(dispatch_get_main_queue(), std::move(tache));", """
    const std::function<void()> aFaire = std::move(tache);
    const auto faite = std::make_shared<bool>(false);
    void (^bloc)(NSTimer*) = ^(NSTimer*) { if (!*faite) { *faite = true; aFaire(); } };
    NSTimer* aussitot = [NSTimer scheduledTimerWithTimeInterval:0 repeats:NO block:bloc];
    [[NSRunLoop mainRunLoop] addTimer:aussitot forMode:@"NSModalPanelRunLoopMode"];""", BOUCLES),
    ],
    ("application.mm", "Proprietes.fermerLaDerniereFenetreFinit"): [
        ("static DelegueCocoa* tenu = nil;", "DelegueCocoa* tenu = nil;"),
        ("? YES : NO", "? NO : YES"),
    ],
    ("application.mm", "Proprietes.leMenuALesSelecteursEtLesTouchesEtCommandeQFinit"): [
        ("@selector(copy:) : @selector(terminate:)", "@selector(terminate:) : @selector(copy:)"),
        ("macos::versNSString(std::string(1, article.touche))", '@""'),
    ],
    ("application.mm", "Proprietes.terminerFinit"): [("[application() terminate:nil];", "")],
    ("alerte.mm", "emetteur-occupe.oui"): [
        ("alerte.informativeText", "alerte.messageText"),
        ("[alerte runModal];", ""),
    ],
    ("liste_proprietes.mm", "ListeDeProprietes.seRelitTelleQuelle"): [
        ("return @(valeur);", 'return valeur ? @"1" : @"0";'),
        ("[liste addObject:macos::versNSString(valeur)];", "static_cast<void>(valeur);"),
    ],
    ("liste_proprietes.mm", "ListeDeProprietes.unCaractereInterditEstUnEchecDit"): [
        ("refusXML(dictionnaire)", "refusXML({})"),
    ],
    ("preferences.mm", "Proprietes.unePreferenceSurvitAUnKill"): [
        ("forKey:macos::versNSString(cle)];\n    [preferences synchronize];",
         "forKey:macos::versNSString(cle)];"),
        ("removeObjectForKey:macos::versNSString(cle)];\n    [preferences synchronize];",
         "removeObjectForKey:macos::versNSString(cle)];"),
    ],
    ("langue.mm", "Proprietes.laDateEstLocaleEtALaForme"): [
        ("yyyy-MM-dd HH:mm:ss", "yyyy-MM-dd HH:mm"),
        ("yyyy-MM-dd HH", "yy-MM-dd HH"),
    ],
    ("langue.mm", "Proprietes.laComparaisonEstCelleDeLaLangue"): [
        ("macos::versNSString(b)", "macos::versNSString(a)"),
        ("== NSOrderedAscending", "!= NSOrderedAscending"),
    ],
    ("presse_papiers.mm", "Proprietes.unAutreProcessusRelitLePressePapiers"): [
        ("[general clearContents];", ""),
    ],
    ("peripheriques_usb.mm", "Proprietes.laRechercheUSBRendCeQuElleTientEtNePrendQueDesTextes"): [
        ("CFRetain(criteres);", ""),
        ("CFRelease(criteres);", ""),
        ("CFRelease(valeur);", ""),
        ("IOObjectRelease(peripherique);", ""),
        ("IOObjectRelease(trouves);", ""),
        ("__bridge_transfer", "__bridge"),
        ("![valeur isKindOfClass:NSString.class]", "valeur == nil"),
        ('CFSTR("idProduct")', 'CFSTR("idVendor")'),
    ],
    ("systeme_exploitation.mm", "Proprietes.leRedemarrageSeDemandeParSonTexteExact"): [
        ("aevtrrst", "aevtrsdn"),
        ("[demande executeAndReturnError:nil];", ""),
    ],
    ("systeme_exploitation.mm", "pret.oui"): [
        ("version.minorVersion, version.patchVersion", "version.patchVersion, version.minorVersion"),
    ],
    ("paquet.mm", "Proprietes.lePaquetDitCeQuIlAEtCeQuIlNAPas"): [
        ("chemin == nil", "false"),
        ("ValeurInfo::Genre::autre", "ValeurInfo::Genre::texte"),
    ],
    ("image.mm", "Proprietes.lePaquetDitCeQuIlAEtCeQuIlNAPas"): [("image == nil", "false")],
    ("natif.mm", "pret.oui"): [("homeDirectoryForCurrentUser.path",
                                "homeDirectoryForCurrentUser.path != nil ? @\"/Users\" : @\"\"")],
    ("textes.hpp", "Proprietes.unTexteQuiNEstPasDeLUTF8DevientVide"): [
        ('converti != nil ? converti : @""', "converti"),
    ],
}
FAUTES = [Faute(f"plateforme/macos/{fichier}", essai, *faute)
          for (fichier, essai), fautes in TABLE.items() for faute in fautes]


def passer(atelier, essai):
    return atelier.lancer(["ctest", "--test-dir", "construction/mutants", "--no-tests=error",
                           "-R", f"^gnustep[.]{essai.replace('.', '[.]')}$"], 180)


def mesurer(atelier, essai):
    if not passer(atelier, essai):
        atelier.renoncer(f"sans aucune faute, « gnustep.{essai} » échoue déjà")


def juger(atelier, faute, cibles):
    """Ce que devient la faute. Deux fois : sur une machine chargée, un essai peut échouer sans avoir rien vu."""
    fichier = pathlib.Path(atelier.depot / faute.fichier)
    entier = fichier.read_text(encoding="utf-8")
    if entier.count(faute.avant) != 1:
        atelier.renoncer(f"« {faute.avant} » n'est pas une fois dans {faute.fichier}")
    fautif = entier.replace(faute.avant, faute.apres).replace(COUTURE, faute.tete + COUTURE, 1)
    fichier.write_text(fautif, encoding="utf-8")
    try:
        construite = atelier.construire(*cibles)
        vue = construite and not any(passer(atelier, faute.essai) for _ in range(2))
    finally:
        fichier.write_text(entier, encoding="utf-8")
    sort = "tué" if vue else "survivant" if construite else "ne compile pas"
    print(f"{sort} {faute.fichier} par gnustep.{faute.essai}\n  - {faute.avant}\n  + {faute.apres}",
          flush=True)
    return sort
