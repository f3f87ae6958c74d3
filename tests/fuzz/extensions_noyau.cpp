// Les listages d'extensions du noyau (kextstat, kmutil) et la réponse de sysctl.
#include "diagnostic/interpretation.hpp"
#include "fuzz/entree.hpp"
#include "support/utf8.hpp"

void essai::eprouver(std::string_view octets) {
    const QByteArray listage(octets.data(), static_cast<qsizetype>(octets.size()));
    const bool ancien = nommeD2xxHelper(octets, 10);
    const bool recent = nommeD2xxHelper(octets, 14);
    exiger(ancien == listage.contains("D2xxHelper"), "kextstat le nomme");
    exiger(recent == listage.contains("com.FTDI.driver.D2xxHelper"), "kmutil le nomme en entier");
    exiger(ancien || !recent, "le nom entier contient le nom");
    exiger(nommeD2xxHelper(std::string(octets) + "com.FTDI.driver.D2xxHelper", 11),
           "rien n'empêche de le lire à la fin");
    const std::string texte = "\u00A0" + decoderUtf8(std::string(octets));
    exiger(estPuceApple(texte) == (QString::fromStdString(texte).trimmed() == QLatin1String("1")),
           "une puce Apple répond 1, entre des blancs");
}
