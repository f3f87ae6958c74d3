// Ce que le banc lit et change de la racine d'un Mac simulé. Fil principal.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <string>

namespace banc {

class Racine {
public:
    explicit Racine(QString dossier) : dossier_(std::move(dossier)) {}

    // Faux dès que la racine a disparu.
    [[nodiscard]] bool existe() const;

    [[nodiscard]] std::string chemin() const { return dossier_.toStdString(); }

    // Un fait de etat/, par son nom (« usb/emetteur-1 »). Absent : un texte vide.
    [[nodiscard]] QString lire(const QString& fait) const;
    [[nodiscard]] bool present(const QString& fait) const;
    [[nodiscard]] QStringList noms(const QString& dossier) const; // dans l'ordre, vide s'il manque

    // Faux quand le disque refuse. L'écriture remplace le fichier d'un coup : aucun outil du Mac
    // n'en lit la moitié.
    bool ecrire(const QString& fait, const QString& contenu) const;
    bool retirer(const QString& fait) const;
    bool deplacer(const QString& de, const QString& vers) const;

private:
    [[nodiscard]] QString cheminDe(const QString& fait) const { return dossier_ + "/etat/" + fait; }

    QString dossier_;
};

} // namespace banc
