// SPDX-License-Identifier: MIT
#include "app/AboutView.h"

#include "app/VersionText.h"
#include "desktop/QtText.h"
#include "ui/style/Accessibility.h"
#include "ui/style/Controls.h"
#include "ui/style/Drawing.h"
#include "ui/style/Symbols.h"

#include <QHBoxLayout>
#include <QIcon>
#include <QPainter>
#include <QVBoxLayout>

namespace korvan {

namespace {

constexpr QSize kSize(640, 520);
constexpr int kPadding = 20;
constexpr int kSpacing = 14;
constexpr int kIconSize = 128;
constexpr int kIconRadius = 24;
constexpr int kNameSpacing = 4;

const QString kAppName = QStringLiteral("Korvan");
const QString kTagline = QStringLiteral("SSH-Verbindungen & Befehlsdatenbank für macOS");
const QString kAuthor = QStringLiteral("Lumera");

// The application's icon with rounded corners, drawn afresh so that it is sharp at every scale.
class IconView final : public QWidget {
public:
    IconView() { setFixedSize(kIconSize, kIconSize); }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        // Filled with the icon instead of clipped to it: clipping leaves jagged edges.
        painter.setBrush(QBrush(m_icon.pixmap(size(), devicePixelRatioF())));
        painter.drawPath(smoothRectangle(rect(), kIconRadius));
    }

private:
    QIcon m_icon = applicationIcon();
};

Label* makeText(const QString& text, TextStyle style,
                SemanticColor color = SemanticColor::primary) {
    auto* label = new Label(text, style, color);
    label->setWordWrap(true);
    return label;
}

} // namespace

AboutView::AboutView(const BundleInformation& bundle, QWidget* parent) : QDialog(parent) {
    setSheetTitle(*this, QStringLiteral("Über Korvan"));
    const auto secondary = [](const QString& text) {
        return makeText(text, TextStyle::body, SemanticColor::secondary);
    };
    auto* column = new QVBoxLayout;
    column->setSpacing(kSpacing);
    column->addLayout(makeHeader(bundle));
    column->addWidget(makeSeparator(Qt::Horizontal));
    column->addWidget(makeText(QStringLiteral("Autor"), TextStyle::headline));
    column->addWidget(makeText(kAuthor, TextStyle::body));
    column->addWidget(secondary(QStringLiteral(
        "Dieses Tool dient zur lokalen Verwaltung von SSH-Profilen und einer editierbaren "
        "Copy/Paste-Befehlsdatenbank. Verbindungen werden durch Öffnen eines Terminal-Fensters "
        "gestartet.")));
    column->addWidget(makeSeparator(Qt::Horizontal));
    column->addWidget(makeText(QStringLiteral("Hinweise"), TextStyle::headline));
    column->addWidget(
        secondary(QStringLiteral("• Passwörter werden aktuell nur als Notizfeld gespeichert "
                                 "(unverschlüsselt in UserDefaults / Export).")));
    column->addWidget(secondary(QStringLiteral("• Export/Import schreibt/liest eine JSON-Datei.")));
    column->addWidget(
        secondary(QStringLiteral("• Nutzung auf eigene Verantwortung. Keine Gewährleistung.")));
    column->addWidget(makeSeparator(Qt::Horizontal));

    auto* close = new QPushButton(QStringLiteral("Schließen"));
    close->setDefault(true);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    column->addWidget(close, 0, Qt::AlignRight);

    auto* frame = new QVBoxLayout(this);
    frame->setContentsMargins(kPadding, kPadding, kPadding, kPadding);
    frame->setSpacing(0);
    frame->addStretch();
    frame->addLayout(column);
    frame->addStretch();
    // Where the desktop's text is so large that it does not fit, better a higher sheet than rows
    // one over the other.
    setFixedSize(kSize.expandedTo({0, frame->totalHeightForWidth(kSize.width())}));
    close->setFocus();
}

QLayout* AboutView::makeHeader(const BundleInformation& bundle) {
    auto* names = new QVBoxLayout;
    names->setSpacing(kNameSpacing);
    names->addStretch();
    names->addWidget(makeText(kAppName, TextStyle::title2));
    names->addWidget(makeText(kTagline, TextStyle::body, SemanticColor::secondary));
    names->addWidget(
        makeText(toQString(versionText(bundle)), TextStyle::caption, SemanticColor::secondary));
    names->addStretch();

    auto* header = new QHBoxLayout;
    header->setSpacing(kSpacing);
    header->addWidget(new IconView);
    header->addLayout(names, 1);
    return header;
}

} // namespace korvan
