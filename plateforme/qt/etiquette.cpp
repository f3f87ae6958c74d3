#include "plateforme/qt/apparence.hpp"
#include "plateforme/qt/application_qt.hpp"
#include "plateforme/qt/composition.hpp"
#include "plateforme/qt/vue_native.hpp"

#include <QtGui/QAbstractTextDocumentLayout>
#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtGui/QTextDocument>

namespace plateforme {
namespace {

// Un texte se met en page une seule fois, dans un document à nous, mesuré puis peint. Qt le
// referait cinq fois par affichage, décodant chaque fois l'image d'un émoji, et à travers des piles
// emboîtées perdrait les dernières lignes ; on ne lui passe la main qu'au premier clic, quand une
// sélection commence.
class EtiquetteQt : public QLabel {
public:
    void montrer(const QString& texte) {
        nu_ = texte;
        setAccessibleName(nu_);
        if (confieeAQt()) {
            reprendreAQt();
        }
        setText(nu_);
        oublierMiseEnPage();
    }

    void setLargeur(int largeur) {
        setFixedWidth(largeur);
        largeur_ = largeur;
        oublierMiseEnPage();
    }

    void setPolice(const QFont& police) {
        setFont(police);
        oublierMiseEnPage();
    }

    void permettreSelection() {
        setWordWrap(true);
        setAlignment(Qt::AlignLeft | Qt::AlignTop);
        setCursor(Qt::IBeamCursor);
        setFocusPolicy(Qt::ClickFocus);
        setContextMenuPolicy(Qt::NoContextMenu); // il copierait la composition avec le texte
    }

    QSize sizeHint() const override {
        const QSizeF taille = document().size();
        return {largeur_ == 0 ? qCeil(taille.width()) : largeur_, qCeil(taille.height())};
    }

    QSize minimumSizeHint() const override { return sizeHint(); }

    bool hasHeightForWidth() const override { return false; }

protected:
    void paintEvent(QPaintEvent* evenement) override {
        if (confieeAQt()) {
            QLabel::paintEvent(evenement);
            return;
        }
        QPainter peintre(this);
        QAbstractTextDocumentLayout::PaintContext couleurs;
        couleurs.palette = palette();
        couleurs.palette.setColor(QPalette::Text, palette().color(foregroundRole()));
        document().documentLayout()->draw(&peintre, couleurs);
    }

    void mousePressEvent(QMouseEvent* evenement) override {
        if (wordWrap() && !confieeAQt()) {
            confierAQt();
        }
        QLabel::mousePressEvent(evenement);
    }

    void keyPressEvent(QKeyEvent* evenement) override {
        if (evenement->matches(QKeySequence::Copy)) {
            copierSelection();
        } else {
            QLabel::keyPressEvent(evenement);
        }
    }

private:
    bool confieeAQt() const { return textInteractionFlags() != Qt::NoTextInteraction; }

    void confierAQt() {
        const QString texte = sansCoupureFautive(nu_);
        const bool riche = demandeUnTexteRiche(texte);
        setTextFormat(riche ? Qt::RichText : Qt::PlainText);
        setText(riche ? texteRiche(texte, font()) : texte);
        setTextInteractionFlags(Qt::TextSelectableByMouse);
    }

    void reprendreAQt() {
        setTextInteractionFlags(Qt::NoTextInteraction);
        setTextFormat(Qt::PlainText);
        setFocusPolicy(Qt::ClickFocus);
    }

    void oublierMiseEnPage() {
        document_.reset();
        updateGeometry();
        update();
    }

    // Le texte vient en dernier : tout réglage d'un document déjà rempli le remet en page.
    QTextDocument& document() const {
        if (!document_) {
            document_ = std::make_unique<QTextDocument>();
            document_->setUndoRedoEnabled(false);
            document_->setDocumentMargin(0);
            document_->setDefaultFont(font());
            document_->setTextWidth(largeur_ == 0 ? -1 : largeur_);
            const QString texte = sansCoupureFautive(nu_);
            demandeUnTexteRiche(texte) ? document_->setHtml(texteRiche(texte, font()))
                                       : document_->setPlainText(texte);
        }
        return *document_;
    }

    QString nu_;
    int largeur_ = 0;                                 // 0 : celle du texte
    mutable std::unique_ptr<QTextDocument> document_; // absent : à mettre en page
};

EtiquetteQt* nouvelleEtiquette(const std::string& texte) {
    applicationQt();
    auto* etiquette = new EtiquetteQt;
    etiquette->setTextFormat(Qt::PlainText);
    etiquette->setFont(police(kTailleOrdinaire, false));
    etiquette->montrer(texteQt(texte));
    return etiquette;
}

} // namespace

Etiquette Etiquette::simple(const std::string& texte) {
    return Etiquette(std::make_shared<VueNative>(nouvelleEtiquette(texte)));
}

Etiquette Etiquette::multiligne(const std::string& texte) {
    EtiquetteQt* etiquette = nouvelleEtiquette(texte);
    etiquette->permettreSelection();
    return Etiquette(std::make_shared<VueNative>(etiquette));
}

void Etiquette::setTexte(const std::string& texte) const {
    widget<EtiquetteQt>(*this).montrer(texteQt(texte));
}

void Etiquette::setPolice(double taille, bool gras) const {
    widget<EtiquetteQt>(*this).setPolice(police(taille, gras));
}

void Etiquette::setCouleurSecondaire() const {
    widget<EtiquetteQt>(*this).setForegroundRole(kRoleTexteSecondaire);
}

void Etiquette::setLargeurMaximale(double largeur) const {
    widget<EtiquetteQt>(*this).setLargeur(static_cast<int>(largeur));
}

} // namespace plateforme
