#include "frame/start_chooser.h"

#include <QButtonGroup>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

struct ButtonTexts {
    QStringView text;
    QStringView beside;
};

// In the order of the choices from 1 on.
constexpr ButtonTexts kButtons[] = {
    {u"Go", u"そのまま新規でデータを入力"},
    {u"Go with KELD analysis", u"*.ABDを選択してからデータを入力"},
    {u"Go with UC GRID", u"*.GRLを選択してからでデータを入力"},
    {u"Run with KELD analysis", u"*.ABDを選択してすぐ全自動設計を行います．\n(後で各データを確認・修正します）"},
    {u"Run with UC GRID", u"*.GRLを選択してすぐ全自動設計を行います．\n(後で各データを確認・修正します）"},
    {u"Cancel", u""},
};

constexpr QStringView kGirderTypes[] = {u"鈑桁", u"箱桁"};

constexpr int kMargin = 20; // px
constexpr int kSpacing = 12;

} // namespace

CStartChooserDlg::CStartChooserDlg(QWidget* parent) : QDialog(parent)
{
    setWindowTitle(u"断面力ファイルタイプの選択"_s);
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->setHorizontalSpacing(kSpacing);
    layout->setVerticalSpacing(kSpacing);
    layout->setColumnStretch(1, 1);
    layout->setSizeConstraint(QLayout::SetFixedSize); // never smaller than its texts

    int row = 0;
    layout->addWidget(CreateGirderTypes(), row++, 0, 1, 2);
    for (const ButtonTexts& button : kButtons) {
        if (!button.beside.empty())
            AddButton(layout, row++, button.text.toString(), button.beside.toString());
    }
    auto* line = new QFrame;
    line->setFrameStyle(QFrame::HLine | QFrame::Sunken);
    layout->addWidget(line, row++, 0, 1, 2);
    auto* note = new QLabel(u"桁高やVS補剛材本数変化など必要設定多い橋の場合は，"
                            u"301～305,311,313などを確認・入力してから解析実行を行って下さい．"_s);
    note->setObjectName(u"note"_s);
    note->setWordWrap(true);
    // The block numbers stand in one line.
    note->setMinimumWidth(note->fontMetrics().horizontalAdvance(note->text().section(u"など"_s, 0, 1)) + kSpacing);
    layout->addWidget(note, row++, 0, 1, 2);
    layout->addWidget(CreateButton(kButtons[std::size(kButtons) - 1].text.toString()), row, 1, Qt::AlignRight);

    for (QPushButton* button : buttons_)
        button->setMinimumWidth(button->fontMetrics().horizontalAdvance(button->text()) + 2 * kMargin);
    buttons_.constFirst()->setDefault(true);
    buttons_.constFirst()->setFocus();
}

QWidget* CStartChooserDlg::CreateGirderTypes()
{
    auto* types = new QWidget;
    auto* layout = new QHBoxLayout(types);
    layout->setContentsMargins(0, 0, 0, kSpacing / 2);
    layout->setSpacing(2 * kSpacing);
    girderTypes_ = new QButtonGroup(this);
    for (const QStringView type : kGirderTypes) {
        auto* button = new QRadioButton(type.toString());
        girderTypes_->addButton(button, int(girderTypes_->buttons().size()));
        layout->addWidget(button);
    }
    layout->addStretch();
    girderTypes_->button(0)->setChecked(true);
    return types;
}

QPushButton* CStartChooserDlg::CreateButton(const QString& text)
{
    auto* button = new QPushButton(text);
    buttons_.append(button);
    const int choice = int(buttons_.size());
    connect(button, &QPushButton::clicked, this, [this, choice] {
        choice_ = choice;
        accept();
    });
    return button;
}

void CStartChooserDlg::AddButton(QGridLayout* layout, int row, const QString& text, const QString& beside)
{
    QPushButton* button = CreateButton(text);
    button->setAccessibleDescription(beside);
    layout->addWidget(button, row, 0);
    layout->addWidget(new QLabel(beside), row, 1);
}

StartChoice CStartChooserDlg::Choice() const
{
    return {choice_, girderTypes_->checkedId()};
}

} // namespace sbd
