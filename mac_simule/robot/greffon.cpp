// L'entrée du robot dans l'assistant, qui n'en sait rien : un greffon que Qt charge en ouvrant
// l'application, quand QT_QPA_GENERIC_PLUGINS le nomme.
#include "mac_simule/robot/robot.hpp"

#include <QtGui/QGenericPlugin>

class Greffon : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "greffon.json")

public:
    QObject* create(const QString&, const QString&) override {
        robot::demarrer();
        return nullptr;
    }
};

#include <greffon.moc>
