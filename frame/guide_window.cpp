#include "frame/guide_window.h"

#include "frame/dialog_parts.h"
#include "frame/guide.h"

#include <QDialog>
#include <QDir>
#include <QHBoxLayout>
#include <QImage>
#include <QLabel>
#include <QPushButton>
#include <QResizeEvent>
#include <QScrollBar>
#include <QTextBrowser>
#include <QTextDocument>
#include <QTimer>
#include <QUrl>
#include <QVBoxLayout>

#include <algorithm>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kSize(1240, 860); // px; a picture is seen as large as it is
constexpr int kMargin = 16;

/// The page; pictures that are wider than the window are made smaller, not larger.
class GuidePage : public QTextBrowser {
public:
    explicit GuidePage(QWidget* parent) : QTextBrowser(parent)
    {
        setAccessibleName(FirstBridge().title);
        setOpenExternalLinks(false);
        document()->setDocumentMargin(kMargin);
        setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn); // no page that changes its width by being laid out
        soon_.setSingleShot(true);
        QObject::connect(&soon_, &QTimer::timeout, this, &GuidePage::ShowPage);
        ShowPage();
    }

    QVariant loadResource(int type, const QUrl& name) override
    {
        if (type != QTextDocument::ImageResource)
            return QTextBrowser::loadResource(type, name);
        QImage picture(u":/guide/"_s + name.path());
        if (picture.isNull())
            return {};
        const int room = std::max(viewport()->width() - 2 * kMargin, 200);
        if (picture.width() > room)
            picture = picture.scaledToWidth(room, Qt::SmoothTransformation);
        return picture;
    }

protected:
    void resizeEvent(QResizeEvent* event) override
    {
        QTextBrowser::resizeEvent(event);
        if (event->size().width() != event->oldSize().width())
            soon_.start(0); // it may come in the midst of a layout
    }

private:
    /// Anew, with pictures for the room that there is, and what was at the top stays there.
    void ShowPage()
    {
        const QScrollBar& bar = *verticalScrollBar();
        const int top = cursorForPosition({kMargin, 0}).position();
        const bool atStart = bar.value() == 0;
        document()->clear(); // its pictures too
        setHtml(GuideHtml(FirstBridge()));
        if (atStart)
            return;
        QTextCursor cursor(document());
        cursor.setPosition(std::min(top, document()->characterCount() - 1));
        verticalScrollBar()->setValue(bar.value() + cursorRect(cursor).top());
    }

    QTimer soon_;
};

} // namespace

QWidget* MakeGuideWindow(QWidget* owner, std::function<QString(QWidget*)> choosePlace)
{
    auto* dialog = new QDialog(nullptr, Qt::Window); // one with a parent would always lie over it
    dialog->setAttribute(Qt::WA_QuitOnClose, false);
    QObject::connect(owner, &QObject::destroyed, dialog, [dialog] { delete dialog; });
    dialog->setObjectName(u"guide"_s);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(FirstBridge().title);
    dialog->resize(kSize);
    auto* practice = new QPushButton(u"練習用のファイルを用意(&P)..."_s);
    practice->setAutoDefault(false); // Enter is for the page
    QLabel* told = PlainText(QString());
    told->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* page = new GuidePage(dialog);
    auto* head = new QHBoxLayout;
    head->addWidget(practice);
    head->addWidget(told, 1);
    auto* layout = new QVBoxLayout(dialog);
    layout->addLayout(head);
    layout->addWidget(page, 1);
    page->setFocus();
    QObject::connect(practice, &QPushButton::clicked, dialog, [dialog, told, choose = std::move(choosePlace)] {
        const QString place = choose(dialog);
        if (place.isEmpty())
            return;
        const QString folder = MakePracticeFolder(place);
        told->setText(folder.isEmpty() ? u"用意できませんでした。書き込める別のフォルダーを選んでください。"_s
                                       : u"用意しました: "_s + QDir::toNativeSeparators(folder));
    });
    return dialog;
}

} // namespace sbd
