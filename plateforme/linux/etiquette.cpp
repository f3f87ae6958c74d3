#include "plateforme/linux/apparence.hpp"
#include "plateforme/linux/application_qt.hpp"
#include "plateforme/linux/vue_native.hpp"

#include <QtGui/QAbstractTextDocumentLayout>
#include <QtGui/QPainter>
#include <QtGui/QTextDocument>

namespace plateforme {
namespace {

constexpr QChar kSelecteurEmoji(0xFE0F);

// La police de base dessine elle-même ⚠ au trait : un caractère suivi du sélecteur d'émoji est donc
// confié explicitement à la police en couleur.
QString texteRiche(const QString& texte) {
    QString riche;
    for (qsizetype i = 0; i < texte.size(); ++i) {
        const bool emoji = i + 1 < texte.size() && texte[i + 1] == kSelecteurEmoji;
        riche += emoji ? QStringLiteral("<span style=\"font-family:'Noto Color Emoji'\">%1</span>")
                             .arg(QString(texte[i]) + kSelecteurEmoji)
                       : QString(texte[i]).toHtmlEscaped();
        i += emoji ? 1 : 0;
    }
    return QStringLiteral("<div style=\"white-space:pre-wrap\">%1</div>").arg(riche);
}

// Un paragraphe de largeur connue se met en page une seule fois, dans un document à nous, mesuré
// puis peint. Qt, pour un texte sélectionnable, le referait cinq fois par affichage, et à travers
// des piles emboîtées perdrait les dernières lignes ; on ne lui passe la main qu'au premier clic,
// quand une sélection commence.
class EtiquetteQt : public QLabel {
public:
    void montrer(const QString& texte) {
        nu_ = texte;
        setAccessibleName(nu_);
        if (textInteractionFlags() != Qt::NoTextInteraction) {
            finirSelection();
        }
        if (wordWrap()) {
            setText(nu_);
            oublierMiseEnPage();
        } else {
            confierAQt();
        }
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
    }

    QSize sizeHint() const override {
        return largeur_ == 0 ? QLabel::sizeHint()
                             : QSize(largeur_, qCeil(document().size().height()));
    }

    QSize minimumSizeHint() const override {
        return largeur_ == 0 ? QLabel::minimumSizeHint() : sizeHint();
    }

    bool hasHeightForWidth() const override { return largeur_ == 0 && QLabel::hasHeightForWidth(); }

protected:
    void paintEvent(QPaintEvent* evenement) override {
        if (largeur_ == 0 || textInteractionFlags() != Qt::NoTextInteraction) {
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
        if (wordWrap() && textInteractionFlags() == Qt::NoTextInteraction) {
            confierAQt();
            setTextInteractionFlags(Qt::TextSelectableByMouse);
        }
        QLabel::mousePressEvent(evenement);
    }

private:
    bool riche() const { return nu_.contains(kSelecteurEmoji); }

    void confierAQt() {
        setTextFormat(riche() ? Qt::RichText : Qt::PlainText);
        setText(riche() ? texteRiche(nu_) : nu_);
    }

    void finirSelection() {
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
            document_->setTextWidth(largeur_);
            riche() ? document_->setHtml(texteRiche(nu_)) : document_->setPlainText(nu_);
        }
        return *document_;
    }

    QString nu_;
    int largeur_ = 0;                                 // 0 : celle du texte, Qt s'en charge
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
