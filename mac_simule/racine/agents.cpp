#include "mac_simule/racine/agents.hpp"

#include "mac_simule/racine/etat.hpp"

#include <QXmlStreamReader>
#include <iostream>

namespace mac_simule {

namespace fs = std::filesystem;

namespace {

// Le texte de l'élément courant s'il est un <string> ; sinon la lecture est une erreur.
std::string lireTexte(QXmlStreamReader& xml) {
    if (xml.name() != QLatin1String("string")) {
        xml.raiseError("un texte était attendu");
        return {};
    }
    return xml.readElementText().toStdString();
}

std::vector<std::string> lireTextes(QXmlStreamReader& xml) {
    std::vector<std::string> textes;
    if (xml.name() != QLatin1String("array")) {
        xml.raiseError("un tableau était attendu");
    }
    while (xml.readNextStartElement()) {
        textes.push_back(lireTexte(xml));
    }
    return textes;
}

bool lireBooleen(QXmlStreamReader& xml) {
    const bool vrai = xml.name() == QLatin1String("true");
    if (!vrai && xml.name() != QLatin1String("false")) {
        xml.raiseError("un booléen était attendu");
    }
    xml.skipCurrentElement();
    return vrai;
}

void lireDictionnaire(QXmlStreamReader& xml, Agent& agent) {
    while (xml.readNextStartElement()) {
        if (xml.name() != QLatin1String("key")) {
            xml.raiseError("une clé était attendue");
            return;
        }
        const QString cle = xml.readElementText();
        if (!xml.readNextStartElement()) {
            xml.raiseError("une valeur était attendue");
        } else if (cle == QLatin1String("Label")) {
            agent.etiquette = lireTexte(xml);
        } else if (cle == QLatin1String("ProgramArguments")) {
            agent.programme = lireTextes(xml);
        } else if (cle == QLatin1String("RunAtLoad")) {
            agent.auChargement = lireBooleen(xml);
        } else {
            xml.skipCurrentElement();
        }
    }
}

} // namespace

std::optional<Agent> lireAgent(const std::string& xml) {
    QXmlStreamReader lecteur(QByteArray::fromStdString(xml));
    Agent agent;
    for (const char* nom : {"plist", "dict"}) {
        if (!lecteur.readNextStartElement() || lecteur.name() != QLatin1String(nom)) {
            return {};
        }
    }
    lireDictionnaire(lecteur, agent);
    while (!lecteur.atEnd()) {
        lecteur.readNext();
    }
    if (lecteur.hasError() || agent.etiquette.empty() || agent.programme.empty()) {
        return {};
    }
    return agent;
}

std::vector<Agent> agentsDe(const fs::path& dossier) {
    std::vector<Agent> agents;
    for (const auto& fichier : contenuDe(dossier)) {
        if (fichier.extension() != ".plist") {
            continue;
        }
        if (auto agent = lireAgent(lireFichier(fichier))) {
            agents.push_back(std::move(*agent));
        } else {
            std::cerr << "launchd ne comprend pas l'agent « " << fichier.filename().string()
                      << " ».\n";
        }
    }
    return agents;
}

} // namespace mac_simule
