#include "mac_simule/banc/racine.hpp"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QSaveFile>

namespace banc {

bool Racine::existe() const {
    return QFileInfo(dossier_ + "/etat").isDir();
}

QString Racine::lire(const QString& fait) const {
    QFile fichier(cheminDe(fait));
    return fichier.open(QFile::ReadOnly) ? QString::fromUtf8(fichier.readAll()) : QString();
}

bool Racine::present(const QString& fait) const {
    return QFileInfo::exists(cheminDe(fait));
}

QStringList Racine::noms(const QString& dossier) const {
    return QDir(cheminDe(dossier)).entryList(QDir::Files, QDir::Name);
}

bool Racine::ecrire(const QString& fait, const QString& contenu) const {
    QSaveFile fichier(cheminDe(fait));
    return fichier.open(QFile::WriteOnly) && fichier.write(contenu.toUtf8()) >= 0 &&
           fichier.commit();
}

bool Racine::retirer(const QString& fait) const {
    return QFile::remove(cheminDe(fait));
}

bool Racine::deplacer(const QString& de, const QString& vers) const {
    return QDir().mkpath(QFileInfo(cheminDe(vers)).path()) &&
           QFile::rename(cheminDe(de), cheminDe(vers));
}

} // namespace banc
