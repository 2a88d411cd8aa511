// CNoticeBar: what a project's window has to say and what must not be missed, without a box that bars the way.
#pragma once

#include <QList>
#include <QString>
#include <QWidget>

#include <functional>

class QVBoxLayout;

namespace sbd {

/// One thing that a notice offers.
struct NoticeAction {
    QString text;              ///< of the button, with its access key
    std::function<void()> act; ///< may close the notice or show others
};

/// A text with buttons. It stays until somebody closes it.
struct Notice {
    QString key; ///< of what it tells; a new notice of the same key takes its place
    QString text;
    QList<NoticeAction> actions;
    bool weighs = false;                ///< data are concerned: the line stands out
    std::function<void()> onClose = {}; ///< the user has closed it
};

/// Notices below each other, the newest on top; hidden while there is none.
class CNoticeBar : public QWidget {
    Q_OBJECT

public:
    explicit CNoticeBar(QWidget* parent = nullptr);

    void Show(const Notice& notice);
    /// Takes the notice of `key` away, if there is one.
    void Close(const QString& key);
    [[nodiscard]] bool Shows(const QString& key) const;
    /// The text of the notice of `key`; empty if there is none.
    [[nodiscard]] QString TextOf(const QString& key) const;
    /// The texts on show, from the top.
    [[nodiscard]] QStringList Texts() const;

signals:
    /// The user has closed the notice of `key`.
    void closed(const QString& key);

private:
    [[nodiscard]] QWidget* LineOf(const QString& key) const;
    [[nodiscard]] QWidget* NewLine(const Notice& notice);

    QVBoxLayout* lines_;
};

} // namespace sbd
