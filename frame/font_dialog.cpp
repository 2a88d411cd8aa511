#include "frame/font_dialog.h"

#include "frame/settings.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QDialogButtonBox>
#include <QFontComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

constexpr int kLeastSize = 6; // px
constexpr int kMostSize = 200;
constexpr int kSampleWidth = 420;
constexpr int kSampleHeight = 90;
constexpr QSize kColorPatch{32, 16};

} // namespace

CFontDialog::CFontDialog(DisplaySettings display, QWidget* parent)
    : QDialog(parent)
    , askColor([](const QColor& now, QWidget* dialog) { return QColorDialog::getColor(now, dialog, u"文字色"_s); })
    , display_(std::move(display))
    , face_(new QFontComboBox)
    , size_(new QSpinBox)
    , italic_(new QCheckBox(u"斜体(&I)"_s))
    , underline_(new QCheckBox(u"下線(&U)"_s))
    , strikeOut_(new QCheckBox(u"取り消し線(&K)"_s))
    , color_(new QPushButton(u"文字色(&C)..."_s))
    , sample_(new QLabel(u"主桁 301 縦桁 640　18.5×12 (mm)"_s))
{
    setWindowTitle(u"フォント"_s);
    const QFont font = FontOf(display_);
    face_->setCurrentFont(font);
    face_->setEditText(display_.fontFaceName); // as it is kept, whatever this computer shows in its place
    size_->setRange(kLeastSize, kMostSize);
    size_->setSuffix(u" ピクセル"_s);
    size_->setValue(font.pixelSize());
    italic_->setChecked(display_.fontItalic);
    underline_->setChecked(display_.fontUnderline);
    strikeOut_->setChecked(display_.fontStrikeOut);
    color_->setIconSize(kColorPatch);
    sample_->setFixedSize(kSampleWidth, kSampleHeight);
    sample_->setAlignment(Qt::AlignCenter);
    sample_->setAutoFillBackground(true);
    sample_->setFrameShape(QFrame::StyledPanel);

    auto* effects = new QHBoxLayout;
    for (QCheckBox* box : {italic_, underline_, strikeOut_})
        effects->addWidget(box);
    effects->addStretch();
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Ok)->setText(u"OK"_s);
    buttons->button(QDialogButtonBox::Cancel)->setText(u"キャンセル"_s);
    auto* layout = new QFormLayout(this);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addRow(u"フォント名(&F)"_s, face_);
    layout->addRow(u"高さ(&H)"_s, size_);
    layout->addRow(u"文字飾り"_s, effects);
    layout->addRow(QString(), color_);
    layout->setAlignment(color_, Qt::AlignLeft);
    layout->addRow(sample_);
    layout->addRow(buttons);

    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(face_, &QFontComboBox::currentTextChanged, this, &CFontDialog::ShowSample);
    connect(size_, &QSpinBox::valueChanged, this, &CFontDialog::ShowSample);
    for (QCheckBox* box : {italic_, underline_, strikeOut_})
        connect(box, &QCheckBox::toggled, this, &CFontDialog::ShowSample);
    connect(color_, &QPushButton::clicked, this, &CFontDialog::AskColor);
    ShowSample();
}

DisplaySettings CFontDialog::Chosen() const
{
    DisplaySettings chosen = display_;
    if (const QString face = face_->currentText().trimmed(); !face.isEmpty())
        chosen.fontFaceName = face;
    if (size_->value() != FontOf(display_).pixelSize())
        chosen.fontHeight = -size_->value();
    chosen.fontItalic = italic_->isChecked();
    chosen.fontUnderline = underline_->isChecked();
    chosen.fontStrikeOut = strikeOut_->isChecked();
    return chosen;
}

void CFontDialog::AskColor()
{
    if (const QColor color = askColor(ToQColor(display_.textColor), this); color.isValid())
        display_.textColor = FromQColor(color);
    ShowSample();
}

void CFontDialog::ShowSample()
{
    QPixmap patch(kColorPatch);
    patch.fill(ToQColor(display_.textColor));
    color_->setIcon(patch);
    sample_->setFont(FontOf(Chosen()));
    QPalette colors = sample_->palette();
    colors.setColor(QPalette::Window, ToQColor(display_.backColor));
    colors.setColor(QPalette::WindowText, ToQColor(display_.textColor));
    sample_->setPalette(colors);
}

} // namespace sbd
