#include "views/forms/kit/WindowGeometry.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <algorithm>
#include <cstdlib>
#include <sstream>

#include "app/IniFile.h"
#include "app/UserPaths.h"

namespace rovanel::forms
{

namespace
{

constexpr const char* kSection = "Ablakok";

std::filesystem::path geometryFile() { return rovanel::userConfigDirectory() / "windows.ini"; }

class GeometryKeeper : public QObject
{
public:
    GeometryKeeper(QWidget* window, QSize designSize, QPoint designPosition)
        : QObject(window), m_window(window), m_designSize(designSize), m_designPosition(designPosition)
    {
        window->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (watched != m_window) return false;
        if (event->type() == QEvent::Show && !m_placed) place();
        if (event->type() == QEvent::Hide && m_placed) remember();
        return false;
    }

private:
    void place()
    {
        m_placed = true;
        const QByteArray key = m_window->objectName().toUtf8();
        QRect wanted =
            geometryFromText(rovanel::readProfileString(geometryFile(), kSection, key.constData(), ""));
        const bool remembered = wanted.isValid();
        if (!remembered) {
            const QSize size = m_designSize.isEmpty() ? m_window->sizeHint() : m_designSize;
            wanted = QRect(m_designPosition.isNull() ? m_window->pos() : m_designPosition, size);
        }
        const QScreen* screen = m_window->screen() ? m_window->screen() : QGuiApplication::primaryScreen();
        if (!screen) return;
        // The frame (title bar, borders) must fit as well; before the first showing it is not known, so
        // a usual one is allowed for.
        const QRect available = screen->availableGeometry().adjusted(0, 0, -8, -32);
        const QRect fitted = fitOnScreen(wanted, m_window->minimumSizeHint(), available);
        m_window->resize(fitted.size());
        if (remembered || !m_designPosition.isNull() || fitted.topLeft() != wanted.topLeft())
            m_window->move(fitted.topLeft());
        m_saved = geometryText(m_window->geometry());
    }

    void remember()
    {
        const std::string text = geometryText(m_window->geometry());
        if (text == m_saved) return;
        const QByteArray key = m_window->objectName().toUtf8();
        // A refused write loses only the window's place; the next start opens at the design size.
        if (rovanel::writeProfileString(geometryFile(), kSection, key.constData(), text)) m_saved = text;
    }

    QWidget* m_window;
    QSize m_designSize;
    QPoint m_designPosition;
    bool m_placed = false;
    std::string m_saved;
};

}  // namespace

void rememberGeometry(QWidget* window, QSize designSize, QPoint designPosition)
{
    new GeometryKeeper(window, designSize, designPosition);
}

QRect fitOnScreen(QRect wanted, QSize minimum, const QRect& screen)
{
    const int width = std::min(std::max(wanted.width(), minimum.width()), screen.width());
    const int height = std::min(std::max(wanted.height(), minimum.height()), screen.height());
    const int left = std::clamp(wanted.left(), screen.left(), screen.left() + screen.width() - width);
    const int top = std::clamp(wanted.top(), screen.top(), screen.top() + screen.height() - height);
    return {left, top, width, height};
}

std::string geometryText(const QRect& geometry)
{
    std::ostringstream text;
    text << geometry.x() << ' ' << geometry.y() << ' ' << geometry.width() << ' ' << geometry.height();
    return text.str();
}

QRect geometryFromText(const std::string& text)
{
    std::istringstream in(text);
    int x = 0, y = 0, width = 0, height = 0;
    if (!(in >> x >> y >> width >> height) || width <= 0 || height <= 0 || width > 100000 ||
        height > 100000 || std::abs(x) > 100000 || std::abs(y) > 100000)
        return {};
    in >> std::ws;
    return in.eof() ? QRect(x, y, width, height) : QRect();
}

}  // namespace rovanel::forms
