// Draws the control center's and the renderer selector's images, each as name.png and
// name@2x.png, into the folders controlCenter/, Glow/ and Menu/ of the given folder.
// From the repository root, after building the draw-images target:
//     build/resources/artwork/draw-images resources
// The PNG files are kept in the repository; run this again only to change them.

#include <QColor>
#include <QDir>
#include <QGuiApplication>
#include <QHash>
#include <QImage>
#include <QLinearGradient>
#include <QMatrix4x4>
#include <QPainter>
#include <QPainterPath>
#include <QPainterPathStroker>
#include <QRadialGradient>
#include <QVector3D>
#include <QtMath>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <functional>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

// The pages' palette.
const QColor titlePurple(79, 70, 135);
const QColor accentBlue(86, 145, 245);
const QColor white(255, 255, 255);

using Draw = std::function<void(QPainter &)>;

// Geometry is in logical pixels and drawn once per scale, so the 2x file is a
// second rendering, not an enlargement of the first.
bool writeImage(const QDir &dir, const QString &name, QSize logical, const Draw &draw)
{
    for (const int scale : {1, 2}) {
        QImage image(logical * scale, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        {
            QPainter painter(&image);
            painter.setRenderHint(QPainter::Antialiasing);
            painter.scale(scale, scale);
            draw(painter);
        }
        const QString file = dir.filePath(scale == 1 ? name + u".png"_s : name + u"@2x.png"_s);
        if (!image.save(file, "PNG")) {
            std::fprintf(stderr, "draw-images: cannot write %s\n", qPrintable(file));
            return false;
        }
    }
    return true;
}

// ---- Reset button --------------------------------------------------------------------

// One closed outline, so that a translucent fill does not darken where the arc
// and the arrowhead overlap.
QPainterPath restoreArrow()
{
    // Centred on a pixel corner: the 2 px stroke at radius 6 then covers whole
    // pixels where the arc meets the grid at 1x. One pixel low, since the
    // arrowhead stands out above the circle.
    const QPointF centre(10, 11);
    const qreal radius = 6;
    const qreal head = 90; // degrees, counter-clockwise from three o'clock: the tip points left
    const qreal span = 280;
    const QRectF box(centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius);

    QPainterPath arc;
    arc.arcMoveTo(box, head - span);
    arc.arcTo(box, head - span, span);
    QPainterPathStroker stroker;
    stroker.setWidth(2);
    stroker.setCapStyle(Qt::RoundCap);
    QPainterPath outline = stroker.createStroke(arc);

    const qreal a = qDegreesToRadians(head);
    const QPointF onArc = centre + QPointF(radius * qCos(a), -radius * qSin(a));
    const QPointF forward(-qSin(a), -qCos(a)); // the counter-clockwise tangent on screen
    const QPointF outward(qCos(a), -qSin(a));
    QPainterPath tip;
    tip.moveTo(onArc + 4.0 * forward);
    tip.lineTo(onArc - 1.0 * forward + 3.5 * outward);
    tip.lineTo(onArc - 1.0 * forward - 3.5 * outward);
    tip.closeSubpath();

    outline = outline.united(tip);
    outline.setFillRule(Qt::WindingFill);
    return outline;
}

Draw resetIcon(int plateAlpha, qreal arrowOpacity, qreal pressedShift)
{
    return [=](QPainter &p) {
        if (plateAlpha > 0) {
            p.setPen(Qt::NoPen);
            p.setBrush(QColor(255, 255, 255, plateAlpha));
            p.drawEllipse(QPointF(10, 10), 10, 10);
        }
        QColor arrow = white;
        arrow.setAlphaF(arrowOpacity);
        p.translate(0, pressedShift);
        p.fillPath(restoreArrow(), arrow);
    };
}

// ---- Radio indicators ----------------------------------------------------------------

void drawRadio(QPainter &p, bool checked)
{
    const QPointF centre(8, 8);
    if (checked) {
        p.setPen(Qt::NoPen);
        p.setBrush(white);
        p.drawEllipse(centre, 7, 7);
        p.setBrush(titlePurple);
        p.drawEllipse(centre, 3, 3);
        return;
    }
    // Outer edge at radius 7, on the pixel grid at 1x, like the checked disc.
    p.setPen(QPen(white, 1.5));
    p.setBrush(QColor(255, 255, 255, 46));
    p.drawEllipse(centre, 6.25, 6.25);
}

// ---- Flat-shaded meshes: the quality pictures and the logo ---------------------------

struct Mesh {
    std::vector<QVector3D> vertices;
    std::vector<std::vector<int>> faces; // planar polygons, counter-clockwise seen from outside
};

// Geodesic sphere: each icosahedron face cut into frequency^2 triangles. Vertices
// on shared edges are merged so that each visible edge is drawn once.
Mesh geodesicSphere(int frequency)
{
    const float t = (1.0f + std::sqrt(5.0f)) / 2.0f;
    const QVector3D ico[12] = {{-1, t, 0}, {1, t, 0}, {-1, -t, 0}, {1, -t, 0},
                               {0, -1, t}, {0, 1, t}, {0, -1, -t}, {0, 1, -t},
                               {t, 0, -1}, {t, 0, 1}, {-t, 0, -1}, {-t, 0, 1}};
    const int icoFaces[20][3] = {{0, 11, 5}, {0, 5, 1}, {0, 1, 7}, {0, 7, 10}, {0, 10, 11},
                                 {1, 5, 9}, {5, 11, 4}, {11, 10, 2}, {10, 7, 6}, {7, 1, 8},
                                 {3, 9, 4}, {3, 4, 2}, {3, 2, 6}, {3, 6, 8}, {3, 8, 9},
                                 {4, 9, 5}, {2, 4, 11}, {6, 2, 10}, {8, 6, 7}, {9, 8, 1}};
    Mesh mesh;
    QHash<QString, int> index;
    const auto vertex = [&](const QVector3D &v) {
        const QVector3D n = v.normalized();
        const QString key = QString::asprintf("%.4f %.4f %.4f", n.x(), n.y(), n.z());
        const auto found = index.constFind(key);
        if (found != index.constEnd())
            return *found;
        mesh.vertices.push_back(n);
        index.insert(key, int(mesh.vertices.size()) - 1);
        return int(mesh.vertices.size()) - 1;
    };
    for (const auto &f : icoFaces) {
        const QVector3D a = ico[f[0]], b = ico[f[1]], c = ico[f[2]];
        const auto at = [&](int i, int j) {
            return vertex((a * float(frequency - i - j) + b * float(i) + c * float(j)) / float(frequency));
        };
        for (int i = 0; i < frequency; ++i) {
            for (int j = 0; i + j < frequency; ++j) {
                mesh.faces.push_back({at(i, j), at(i + 1, j), at(i, j + 1)});
                if (i + j + 1 < frequency)
                    mesh.faces.push_back({at(i + 1, j), at(i + 1, j + 1), at(i, j + 1)});
            }
        }
    }
    return mesh;
}

// A torus around the z axis, of outer radius 1, cut into quads.
Mesh torus(int around, int through, float tube)
{
    Mesh mesh;
    const float major = 1.0f - tube;
    for (int i = 0; i < around; ++i) {
        const float u = 2 * float(M_PI) * float(i) / float(around);
        for (int j = 0; j < through; ++j) {
            const float w = 2 * float(M_PI) * float(j) / float(through);
            const float r = major + tube * std::cos(w);
            mesh.vertices.push_back({r * std::cos(u), r * std::sin(u), tube * std::sin(w)});
        }
    }
    const auto at = [&](int i, int j) { return (i % around) * through + j % through; };
    for (int i = 0; i < around; ++i)
        for (int j = 0; j < through; ++j)
            mesh.faces.push_back({at(i, j), at(i + 1, j), at(i + 1, j + 1), at(i, j + 1)});
    return mesh;
}

QColor mix(const QColor &a, const QColor &b, qreal t)
{
    return QColor::fromRgbF(float(a.redF() + (b.redF() - a.redF()) * t),
                            float(a.greenF() + (b.greenF() - a.greenF()) * t),
                            float(a.blueF() + (b.blueF() - a.blueF()) * t));
}

QColor ramp(const std::vector<QColor> &stops, qreal x)
{
    const int steps = int(stops.size()) - 1;
    x = std::clamp(x, 0.0, 1.0) * steps;
    const int i = std::min(int(x), steps - 1);
    return mix(stops[i], stops[i + 1], x - i);
}

struct Look {
    QMatrix4x4 turn;
    QPointF centre;
    qreal radius = 1;
    std::vector<QColor> shades; // from the darkest face to the most lit
    QPen seam;                  // between two visible faces
    QPen outline;               // where only one side is visible
    bool centreBounds = false;  // centre the drawn shape rather than its origin
};

// Orthographic, lit from the upper left and a little from the front.
void drawMesh(QPainter &p, const Mesh &mesh, const Look &look)
{
    std::vector<QVector3D> v;
    v.reserve(mesh.vertices.size());
    for (const QVector3D &x : mesh.vertices)
        v.push_back(look.turn.map(x));
    QPointF shift;
    if (look.centreBounds) {
        QPolygonF all;
        for (const QVector3D &x : v)
            all << QPointF(x.x(), -x.y());
        shift = -all.boundingRect().center() * look.radius;
    }
    const auto screen = [&](const QVector3D &x) {
        return look.centre + shift + QPointF(look.radius * x.x(), -look.radius * x.y());
    };
    const QVector3D toLight = QVector3D(-0.55f, 0.65f, 0.75f).normalized();
    const QVector3D halfway = (toLight + QVector3D(0, 0, 1)).normalized();

    struct Face {
        float depth = 0;
        QPolygonF polygon;
        QColor colour;
    };
    struct Edge {
        int a = 0, b = 0, faces = 0;
    };
    std::vector<Face> visible;
    QHash<quint64, Edge> edges;
    for (const auto &f : mesh.faces) {
        const QVector3D normal = QVector3D::crossProduct(v[f[1]] - v[f[0]], v[f[2]] - v[f[0]]).normalized();
        if (normal.z() <= 0.0f)
            continue;
        const float diffuse = std::max(0.0f, QVector3D::dotProduct(normal, toLight));
        const float gloss = std::pow(std::max(0.0f, QVector3D::dotProduct(normal, halfway)), 28.0f);
        Face face;
        face.colour = ramp(look.shades, 0.08 + 0.62 * diffuse + 0.4 * gloss);
        for (std::size_t k = 0; k < f.size(); ++k) {
            face.polygon << screen(v[f[k]]);
            face.depth += v[f[k]].z() / float(f.size());
            const int a = std::min(f[k], f[(k + 1) % f.size()]), b = std::max(f[k], f[(k + 1) % f.size()]);
            Edge &e = edges[quint64(a) << 32 | quint64(b)];
            e.a = a;
            e.b = b;
            ++e.faces;
        }
        visible.push_back(face);
    }
    // Back to front, for the shapes that are not convex.
    std::sort(visible.begin(), visible.end(), [](const Face &a, const Face &b) { return a.depth < b.depth; });

    // The thin pen in the face's own colour closes the antialiasing seams
    // between neighbours.
    for (const Face &face : visible) {
        p.setPen(QPen(face.colour, 0.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        p.setBrush(face.colour);
        p.drawPolygon(face.polygon);
    }
    // Each pen's lines filled as one outline: translucent lines drawn one by one
    // pile up into bright dots where they meet.
    QPainterPath seams, outline;
    for (const Edge &e : std::as_const(edges)) {
        QPainterPath &path = e.faces == 1 ? outline : seams;
        path.moveTo(screen(v[e.a]));
        path.lineTo(screen(v[e.b]));
    }
    for (const auto &[lines, pen] : {std::pair(seams, look.seam), std::pair(outline, look.outline)}) {
        if (pen.style() == Qt::NoPen)
            continue;
        QPainterPathStroker stroker(pen);
        QPainterPath shape = stroker.createStroke(lines);
        shape.setFillRule(Qt::WindingFill);
        p.fillPath(shape, pen.color());
    }
}

void drawGroundShadow(QPainter &p, const QPointF &centre, qreal width, qreal height)
{
    QRadialGradient shadow(QPointF(0, 0), 1);
    shadow.setColorAt(0, QColor(52, 45, 98, 70));
    shadow.setColorAt(1, QColor(52, 45, 98, 0));
    p.save();
    p.translate(centre);
    p.scale(width / 2, height / 2);
    p.setPen(Qt::NoPen);
    p.setBrush(shadow);
    p.drawEllipse(QPointF(0, 0), 1, 1);
    p.restore();
}

Draw qualitySphere(int frequency)
{
    return [=](QPainter &p) {
        drawGroundShadow(p, QPointF(24, 44), 30, 6.5);
        Look look;
        // The same tilt for every level, off the icosahedron's symmetry axes so
        // that the coarse ones do not look like flat badges.
        look.turn.rotate(-24, 1, 0, 0);
        look.turn.rotate(31, 0, 1, 0);
        look.turn.rotate(9, 0, 0, 1);
        look.centre = QPointF(24, 23);
        look.radius = 20;
        // Dark purple in the shadow to white in the light; the outline keeps the
        // lit side off the lavender page.
        look.shades = {QColor(52, 45, 98), titlePurple, QColor(124, 114, 186), QColor(196, 190, 232),
                       QColor(250, 249, 255)};
        look.seam = QPen(QColor(255, 255, 255, 80), 0.5, Qt::SolidLine, Qt::RoundCap);
        look.outline = QPen(QColor(52, 45, 98, 150), 0.75, Qt::SolidLine, Qt::RoundCap);
        drawMesh(p, geodesicSphere(frequency), look);
    };
}

// ---- Logo ----------------------------------------------------------------------------

// A faceted ring, tipped towards the viewer: the shape a viewer of meshes shows.
void drawLogo(QPainter &p)
{
    const QPointF centre(32, 32);
    QLinearGradient body(0, 2, 0, 62);
    body.setColorAt(0, QColor(100, 90, 164));
    body.setColorAt(1, QColor(64, 56, 114));
    p.setPen(Qt::NoPen);
    p.setBrush(body);
    p.drawEllipse(centre, 30, 30);

    Look look;
    look.turn.rotate(-14, 0, 0, 1);
    look.turn.rotate(-52, 1, 0, 0);
    // A tipped ring's centre is not the middle of what is seen; and its dark
    // front wall weighs on the bottom, hence the extra pixel down.
    look.centre = centre + QPointF(0, 1);
    look.radius = 24;
    look.centreBounds = true;
    look.shades = {QColor(40, 52, 120), QColor(58, 96, 196), accentBlue, QColor(168, 200, 252), white};
    look.seam = QPen(QColor(255, 255, 255, 36), 0.5, Qt::SolidLine, Qt::RoundCap);
    look.outline = QPen(Qt::NoPen);
    drawMesh(p, torus(18, 7, 0.27f), look);
}


// ---- Renderer selector -----------------------------------------------------------------

// The selector's frame is a rounded card on a transparent window; its glow is one soft
// shadow, cut into the twenty pieces that the window's frames stretch around the card.
namespace glow {
constexpr qreal width = 14;  // shadow band outside the card
constexpr qreal corner = 12; // the card's corner cells (radius 9 fits inside)
constexpr qreal middle = 4;  // stretched by the edge frames
constexpr qreal radius = 9;
const QColor shade(72, 70, 70);
constexpr qreal strength = 70; // alpha where the shadow touches the card
} // namespace glow

// Alpha of the shadow at a point of the uncut canvas, from its distance to the card.
qreal glowAlpha(QPointF point)
{
    using namespace glow;
    const QRectF card(width, width, 2 * corner + middle, 2 * corner + middle);
    const QRectF inner = card.adjusted(radius, radius, -radius, -radius);
    const qreal dx = std::max({inner.left() - point.x(), 0.0, point.x() - inner.right()});
    const qreal dy = std::max({inner.top() - point.y(), 0.0, point.y() - inner.bottom()});
    const qreal outside = std::hypot(dx, dy) - radius;
    if (outside <= 0)
        return strength;
    const qreal t = std::clamp(1.0 - outside / width, 0.0, 1.0);
    return strength * t * t;
}

// One piece of the canvas, `source` in its logical coordinates.
Draw glowPiece(QRectF source)
{
    return [source](QPainter &p) {
        const qreal scale = p.transform().m11();
        const QSize pixels = (source.size() * scale).toSize();
        QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
        for (int y = 0; y < pixels.height(); ++y) {
            for (int x = 0; x < pixels.width(); ++x) {
                const QPointF point = source.topLeft() + QPointF(x + 0.5, y + 0.5) / scale;
                QColor colour = glow::shade;
                colour.setAlpha(qRound(glowAlpha(point)));
                image.setPixelColor(x, y, colour);
            }
        }
        p.drawImage(QRectF(QPointF(0, 0), source.size()), image);
    };
}

// The title's mark: a ring around a dot, in the two engine colours' grey.
void drawPoint(QPainter &p)
{
    p.setPen(QPen(QColor(154, 151, 153), 1.5));
    p.setBrush(Qt::NoBrush);
    p.drawEllipse(QPointF(8, 8), 5.25, 5.25);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(129, 184, 168));
    p.drawEllipse(QPointF(8, 8), 2.5, 2.5);
}

bool writeSelectorImages(const QDir &glowDir, const QDir &menuDir)
{
    using namespace glow;
    // Column and row bands of the canvas: outer, corner, middle, corner, outer.
    const qreal starts[] = {0, width, width + corner, width + corner + middle, width + 2 * corner + middle};
    const qreal sizes[] = {width, corner, middle, corner, width};
    struct Piece
    {
        const char *name;
        int column;
        int row;
    };
    const Piece pieces[] = {
        {"OTL", 0, 0}, {"TL", 1, 0}, {"T", 2, 0}, {"TR", 3, 0}, {"ORT", 4, 0},
        {"LT", 0, 1}, {"L", 0, 2}, {"LB", 0, 3},
        {"RT", 4, 1}, {"R", 4, 2}, {"RB", 4, 3},
        {"OBL", 0, 4}, {"BL", 1, 4}, {"B", 2, 4}, {"BR", 3, 4}, {"OBR", 4, 4},
        {"ITL", 1, 1}, {"IRT", 3, 1}, {"IBL", 1, 3}, {"IBR", 3, 3},
    };
    bool ok = true;
    for (const Piece &piece : pieces) {
        const QRectF source(starts[piece.column], starts[piece.row], sizes[piece.column], sizes[piece.row]);
        ok &= writeImage(glowDir, QString::fromLatin1(piece.name), source.size().toSize(), glowPiece(source));
    }
    ok &= writeImage(menuDir, u"point"_s, QSize(16, 16), drawPoint);
    return ok;
}

} // namespace

int main(int argc, char *argv[])
{
    // No window is ever shown; this keeps the tool usable without a display.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);

    const QStringList args = QCoreApplication::arguments();
    if (args.size() != 2) {
        std::fprintf(stderr, "usage: draw-images <output folder>\n");
        return 2;
    }
    QDir root(args.at(1));
    for (const QString &folder : {u"controlCenter"_s, u"Glow"_s, u"Menu"_s}) {
        if (!root.mkpath(folder)) {
            std::fprintf(stderr, "draw-images: cannot create %s\n", qPrintable(root.filePath(folder)));
            return 2;
        }
    }
    const QDir dir(root.filePath(u"controlCenter"_s));

    const QSize resetSize(20, 20), radioSize(16, 16), qualitySize(48, 48), logoSize(64, 64);
    bool ok = true;
    ok &= writeImage(dir, u"reset"_s, resetSize, resetIcon(0, 1.0, 0));
    ok &= writeImage(dir, u"resetHover"_s, resetSize, resetIcon(40, 1.0, 0));
    ok &= writeImage(dir, u"resetClicked"_s, resetSize, resetIcon(72, 1.0, 1));
    ok &= writeImage(dir, u"resetDisabled"_s, resetSize, resetIcon(0, 0.35, 0));
    ok &= writeImage(dir, u"checked"_s, radioSize, [](QPainter &p) { drawRadio(p, true); });
    ok &= writeImage(dir, u"unchecked"_s, radioSize, [](QPainter &p) { drawRadio(p, false); });
    // From no compression to the strongest: fewer and fewer triangles.
    ok &= writeImage(dir, u"High"_s, qualitySize, qualitySphere(6));
    ok &= writeImage(dir, u"Medium High"_s, qualitySize, qualitySphere(4));
    ok &= writeImage(dir, u"Medium"_s, qualitySize, qualitySphere(3));
    ok &= writeImage(dir, u"Medium-Low-Quality"_s, qualitySize, qualitySphere(2));
    ok &= writeImage(dir, u"Low-Quality"_s, qualitySize, qualitySphere(1));
    ok &= writeImage(dir, u"logo-torvane"_s, logoSize, drawLogo);
    ok &= writeSelectorImages(QDir(root.filePath(u"Glow"_s)), QDir(root.filePath(u"Menu"_s)));
    return ok ? 0 : 1;
}
