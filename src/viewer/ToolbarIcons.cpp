#include "viewer/ToolbarIcons.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <QPolygonF>

namespace tolvisk {
namespace {

const QColor kInk(40, 40, 48);
const QColor kPaper(250, 250, 245);
const QColor kBlue(40, 100, 190);
const QColor kGreen(30, 140, 60);
const QColor kRed(200, 45, 40);
const QColor kGold(220, 170, 40);

void page(QPainter& p, const QColor& fill = kPaper) {
    QPainterPath path;
    path.moveTo(3.5, 1.5);
    path.lineTo(10.5, 1.5);
    path.lineTo(13.5, 4.5);
    path.lineTo(13.5, 14.5);
    path.lineTo(3.5, 14.5);
    path.closeSubpath();
    p.setPen(QPen(kInk, 1));
    p.setBrush(fill);
    p.drawPath(path);
    p.drawLine(QPointF(10.5, 1.5), QPointF(10.5, 4.5));
    p.drawLine(QPointF(10.5, 4.5), QPointF(13.5, 4.5));
}

void folder(QPainter& p) {
    p.setPen(QPen(kInk, 1));
    p.setBrush(kGold);
    p.drawRect(QRectF(1.5, 4.5, 13, 9));
    p.drawRect(QRectF(1.5, 2.5, 5, 2));
}

void disk(QPainter& p, QPointF at, const QColor& body) {
    p.setPen(QPen(kInk, 1));
    p.setBrush(body);
    p.drawRect(QRectF(at.x() + 0.5, at.y() + 0.5, 10, 10));
    p.setBrush(kPaper);
    p.drawRect(QRectF(at.x() + 2.5, at.y() + 0.5, 6, 4));
    p.setBrush(kInk);
    p.drawRect(QRectF(at.x() + 3, at.y() + 7, 5, 3));
}

// A round button of that colour, ready for a sign in paper colour on it.
void disc(QPainter& p, const QColor& colour) {
    p.setPen(QPen(kInk, 1));
    p.setBrush(colour);
    p.drawEllipse(QRectF(1.5, 1.5, 13, 13));
    p.setPen(Qt::NoPen);
    p.setBrush(kPaper);
}

// A triangle pointing left (dir -1) or right (dir 1), with an optional bar.
void arrow(QPainter& p, int dir, bool bar, bool doubled, const QColor& colour = kBlue) {
    p.setPen(Qt::NoPen);
    p.setBrush(colour);
    auto tri = [&](qreal tipX) {
        QPolygonF poly;
        poly << QPointF(tipX, 8) << QPointF(tipX - dir * 6, 3) << QPointF(tipX - dir * 6, 13);
        p.drawPolygon(poly);
    };
    if (doubled) {
        tri(dir > 0 ? 9 : 7);
        tri(dir > 0 ? 15 : 1);
    } else {
        tri(dir > 0 ? 12 : 4);
    }
    if (bar)
        p.drawRect(dir > 0 ? QRectF(12, 3, 2, 10) : QRectF(2, 3, 2, 10));
}

void boardGrid(QPainter& p, QRectF r, const QColor& dark) {
    p.setPen(QPen(kInk, 1));
    p.setBrush(kPaper);
    p.drawRect(r);
    p.setPen(Qt::NoPen);
    p.setBrush(dark);
    const qreal s = r.width() / 4;
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 4; ++x)
            if ((x + y) % 2)
                p.drawRect(QRectF(r.left() + x * s, r.top() + y * s, s, s));
}

void draw(QPainter& p, int index) {
    switch (index) {
    case 1: // New
        page(p);
        p.setPen(QPen(kGold, 2));
        p.drawLine(QPointF(8.5, 7), QPointF(8.5, 12));
        p.drawLine(QPointF(6, 9.5), QPointF(11, 9.5));
        break;
    case 2: // Open
        folder(p);
        p.setPen(Qt::NoPen);
        p.setBrush(kGold.lighter(130));
        p.drawPolygon(QPolygonF() << QPointF(4, 7) << QPointF(15.5, 7) << QPointF(13, 13.5)
                                  << QPointF(1.5, 13.5));
        break;
    case 3: // Close
        folder(p);
        p.setPen(QPen(kRed, 2));
        p.drawLine(QPointF(6, 6.5), QPointF(11, 11.5));
        p.drawLine(QPointF(11, 6.5), QPointF(6, 11.5));
        break;
    case 4: // Load game
        boardGrid(p, QRectF(1.5, 1.5, 9, 9), QColor(120, 120, 130));
        p.setPen(Qt::NoPen);
        p.setBrush(kGreen);
        p.drawPolygon(QPolygonF() << QPointF(10, 9) << QPointF(15, 9) << QPointF(12.5, 14.5));
        break;
    case 5: // Save
        disk(p, QPointF(2.5, 2.5), kBlue);
        break;
    case 6: // Save all
        disk(p, QPointF(0.5, 0.5), kBlue.lighter(140));
        disk(p, QPointF(4.5, 4.5), kBlue);
        break;
    case 7: // Print
        p.setPen(QPen(kInk, 1));
        p.setBrush(kPaper);
        p.drawRect(QRectF(4.5, 1.5, 7, 5));
        p.setBrush(QColor(170, 170, 175));
        p.drawRect(QRectF(1.5, 6.5, 13, 6));
        p.setBrush(kPaper);
        p.drawRect(QRectF(4.5, 10.5, 7, 4));
        break;
    case 8: // Mark as deleted
        page(p);
        p.setPen(QPen(kRed, 2));
        p.drawLine(QPointF(5, 6), QPointF(12, 13));
        p.drawLine(QPointF(12, 6), QPointF(5, 13));
        break;
    case 9: // Copy game to clipboard
        p.setPen(QPen(kInk, 1));
        p.setBrush(kPaper);
        p.drawRect(QRectF(1.5, 1.5, 8, 10));
        p.drawRect(QRectF(6.5, 4.5, 8, 10));
        p.setPen(QPen(kInk.lighter(200), 1));
        for (int y = 7; y <= 12; y += 2)
            p.drawLine(QPointF(8, y + 0.5), QPointF(13, y + 0.5));
        break;
    case 10: // Find
        p.setPen(QPen(kInk, 2));
        p.setBrush(QColor(190, 220, 250));
        p.drawEllipse(QRectF(2, 2, 8, 8));
        p.setPen(QPen(kInk, 3, Qt::SolidLine, Qt::RoundCap));
        p.drawLine(QPointF(9.5, 9.5), QPointF(14, 14));
        break;
    case 11: { // Reverse view
        p.setPen(QPen(kBlue, 2));
        p.setBrush(Qt::NoBrush);
        p.drawArc(QRectF(2.5, 2.5, 11, 11), 30 * 16, 150 * 16);
        p.drawArc(QRectF(2.5, 2.5, 11, 11), 210 * 16, 150 * 16);
        p.setPen(Qt::NoPen);
        p.setBrush(kBlue);
        p.drawPolygon(QPolygonF() << QPointF(12, 1) << QPointF(15, 6) << QPointF(10, 6));
        p.drawPolygon(QPolygonF() << QPointF(4, 15) << QPointF(1, 10) << QPointF(6, 10));
        break;
    }
    case 12: // Variation board
        boardGrid(p, QRectF(0.5, 0.5, 9, 9), QColor(120, 120, 130));
        boardGrid(p, QRectF(6.5, 6.5, 9, 9), kGreen);
        break;
    case 13: // Previous game
        arrow(p, -1, false, true, kGreen);
        break;
    case 14: // Move first
        arrow(p, -1, true, false);
        break;
    case 15: // Move previous
        arrow(p, -1, false, false);
        break;
    case 16: // Move next
        arrow(p, 1, false, false);
        break;
    case 17: // Move last
        arrow(p, 1, true, false);
        break;
    case 18: // Next game
        arrow(p, 1, false, true, kGreen);
        break;
    case 19: // Start auto play
        disc(p, kGreen);
        p.drawPolygon(QPolygonF() << QPointF(6, 4.5) << QPointF(12, 8) << QPointF(6, 11.5));
        break;
    case 20: // Stop auto play
        disc(p, kRed);
        p.drawRect(QRectF(5, 5, 6, 6));
        break;
    default: // Help
        disc(p, kBlue);
        p.setPen(kPaper);
        QFont font = p.font();
        font.setPixelSize(11);
        font.setBold(true);
        p.setFont(font);
        p.drawText(QRectF(1.5, 1.5, 13, 13), Qt::AlignCenter, QStringLiteral("?"));
        break;
    }
}

} // namespace

QIcon toolbarIcon(int index) {
    QIcon icon;
    for (int scale : {1, 2}) {
        QPixmap pixmap(16 * scale, 16 * scale);
        pixmap.setDevicePixelRatio(scale);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        draw(painter, index);
        painter.end();
        icon.addPixmap(pixmap);
    }
    return icon;
}

} // namespace tolvisk
