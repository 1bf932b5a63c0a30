#include "stripchart/tcFileDrop.h"

#include <QDropEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QTimer>
#include <QUrl>
#include <QWidget>

tcFileDrop::tcFileDrop(QWidget& arWindow)
{
    arWindow.setAcceptDrops(true);
    arWindow.installEventFilter(this);
}

QString tcFileDrop::fileIn(const QMimeData& acDragged)
{
    const QList<QUrl> urls = acDragged.urls();
    for (const QUrl& url : urls) {
        const QFileInfo file(url.toLocalFile());
        if (url.isLocalFile()
            && file.suffix().compare(QLatin1String("csv"), Qt::CaseInsensitive) == 0
            && file.isFile())
            return file.filePath();
    }
    return {};
}

bool tcFileDrop::eventFilter(QObject* apObject, QEvent* apEvent)
{
    const bool isDrop = apEvent->type() == QEvent::Drop;
    if (!isDrop && apEvent->type() != QEvent::DragEnter)
        return QObject::eventFilter(apObject, apEvent);
    auto* drag = static_cast<QDropEvent*>(apEvent);
    const QString file = fileIn(*drag->mimeData());
    // Only ever a copy: told of a move, a file manager would delete the file.
    if (file.isEmpty() || !drag->possibleActions().testFlag(Qt::CopyAction)) {
        drag->ignore();
        return true;
    }
    drag->setDropAction(Qt::CopyAction);
    drag->accept();
    if (isDrop)
        QTimer::singleShot(0, this, [this, file] { Q_EMIT dropped(file); });
    return true;
}
