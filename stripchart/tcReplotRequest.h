#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

class QwtPlot;

/// Asked any number of times, it replots once per pass of the event loop and at most some sixty
/// times a second. A plot that nobody can see is replotted when it is seen again.
class tcReplotRequest : public QObject
{
    Q_OBJECT

public:
    /// arPlot outlives the request.
    explicit tcReplotRequest(QwtPlot& arPlot);

    void request();

    bool eventFilter(QObject* apObject, QEvent* apEvent) override;

private:
    void replot();
    bool isSeen() const;

    QwtPlot& mPlot;
    QTimer mTimer;
    QElapsedTimer mSinceReplot;
    bool mMissed = false; ///< asked for while nobody could see it
};
