#pragma once

#include <QFont>
#include <QPushButton>
#include <QWidget>

class QLabel;

// The look of this host's own windows: one palette, one scale of type, and the few pieces of
// which they are made. The library's forms bring their own look; the colours are the same.

namespace Host::Look {

QColor Accent();
QColor AccentText();
QColor Background();
QColor GroupBackground();
QColor FocusBackground();
QColor Border();
QColor Text();
QColor MutedText();
QColor Warning(); ///< text that tells of a failure: darker than the frames of the library's fields

QFont Latin();
QFont SmallLatin();
QFont Urdu();
QFont LargeUrdu();

/// Gives a window its direction (right to left), palette, font and style sheet.
void Dress(QWidget* window);

/// A label in the Urdu font, high enough for it.
QLabel* UrduLabel(const QString& text, const QFont& font, QWidget* parent);
/// The caption of a field: Urdu, with the English term small below it.
QWidget* FieldCaption(const QString& urdu, const QString& english, QWidget* parent);

} // namespace Host::Look

namespace Host {

/// The coloured title strip of a window: the title in Urdu and English, and a short note at its
/// end.
class TitleStrip : public QWidget {
    Q_OBJECT

public:
    TitleStrip(const QString& urdu, const QString& english, const QString& note, QWidget* parent);
};

/// A button with its Urdu caption over the English one and its key.
class CaptionButton : public QPushButton {
    Q_OBJECT

public:
    CaptionButton(const QString& urdu, const QString& english, QWidget* parent);

    void SetEnglish(const QString& english);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString urdu_;
    QString english_;
};

} // namespace Host
