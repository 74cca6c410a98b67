// SPDX-License-Identifier: MIT
#include "app/AboutView.h"

#include "app/ProgramBundle.h"
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

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kSize(640, 520);
constexpr int kPadding = 20;
constexpr int kSpacing = 14;
constexpr int kIconSize = 128;
constexpr int kIconRadius = 24;
constexpr int kNameSpacing = 4;

const QString kAppName = u"Korvan"_s;
const QString kTagline = u"SSH-Verbindungen & Befehlsdatenbank für macOS"_s;
const QString kAuthor = u"Lumera"_s;

// The application's icon with rounded corners. Draws the icon anew for each size and scale, so that
// it is sharp.
class IconView final : public QWidget {
public:
    IconView() { setFixedSize(kIconSize, kIconSize); }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        // Fills the path with the icon: clipping the icon to the path would leave jagged edges.
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
    setSheetTitle(*this, u"Über Korvan"_s);
    const auto secondary = [](const QString& text) {
        return makeText(text, TextStyle::body, SemanticColor::secondary);
    };
    auto* column = new QVBoxLayout;
    column->setSpacing(kSpacing);
    column->addLayout(makeHeader(bundle));
    column->addWidget(makeSeparator(Qt::Horizontal));
    column->addWidget(makeText(u"Autor"_s, TextStyle::headline));
    column->addWidget(makeText(kAuthor, TextStyle::body));
    column->addWidget(secondary(
        u"Dieses Tool dient zur lokalen Verwaltung von SSH-Profilen und einer editierbaren "
        "Copy/Paste-Befehlsdatenbank. Verbindungen werden durch Öffnen eines Terminal-Fensters "
        "gestartet."_s));
    column->addWidget(makeSeparator(Qt::Horizontal));
    column->addWidget(makeText(u"Hinweise"_s, TextStyle::headline));
    column->addWidget(secondary(u"• Passwörter werden aktuell nur als Notizfeld gespeichert "
                                "(unverschlüsselt in UserDefaults / Export)."_s));
    column->addWidget(secondary(u"• Export/Import schreibt/liest eine JSON-Datei."_s));
    column->addWidget(secondary(u"• Nutzung auf eigene Verantwortung. Keine Gewährleistung."_s));
    column->addWidget(makeSeparator(Qt::Horizontal));

    auto* close = new QPushButton(u"Schließen"_s);
    close->setDefault(true);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    column->addWidget(close, 0, Qt::AlignRight);

    auto* frame = new QVBoxLayout(this);
    frame->setContentsMargins(kPadding, kPadding, kPadding, kPadding);
    frame->setSpacing(0);
    frame->addStretch();
    frame->addLayout(column);
    frame->addStretch();
    // The sheet grows where the desktop's text is too large for it. Otherwise rows would overlap.
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
