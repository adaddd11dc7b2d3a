// What a plan shows: layers, rooms, tones, doors, a grid, directions and lengths.

#include "PlanDesk.hpp"
#include "desktop/plan/PlanFrame.hpp"
#include "desktop/plan/PlanPainter.hpp"

#include <QLabel>
#include <QMenu>
#include <QSettings>
#include <QToolButton>

namespace desktop_tests {

namespace {

using desktop::PlanLayer;
using model::PlanKind;
using testing::HasSubstr;

}  // namespace

class PlanContent : public PlanDesk {
protected:
    /// An element of the sample by the beginning of its instance.
    const desktop::Footprint* footprintOf(const std::string& ifcClass, const std::string& name) {
        const model::Model& model = *window().document().model();
        for (model::Element it = 0; it < model.elementCount(); ++it) {
            if (model.info(it).ifcClass == ifcClass && desktop::toQString(model.name(it)) == desktop::toQString(name)) {
                return view().geometry().find(it);
            }
        }
        ADD_FAILURE() << "the sample has no " << ifcClass << " " << name;
        return nullptr;
    }
    const desktop::PlanLabel* labelOf(const std::string& room) {
        const desktop::Footprint* found = footprintOf("IfcSpace", room);
        return found ? view().geometry().label(found->element) : nullptr;
    }
    QColor fill(PlanKind kind, bool cut = false) { return desktop::planStyle(view().palette(), kind, cut).fill; }
};

// --- Layers ---

TEST_F(PlanContent, OpeningsAndTerrainAreDrawnOnceAskedFor) {
    openChanged({{"#302,$,$,.ELEMENT.,(48,8,15,0)", "#302,#411,$,.ELEMENT.,(48,8,15,0)"}});
    const auto shown = [this] {
        return std::pair(footprintOf("IfcOpeningElement", "Öffnung Haustür") != nullptr,
                         footprintOf("IfcSite", "Grundstück am Weiher") != nullptr);
    };
    EXPECT_EQ(shown(), std::pair(false, false));
    pickLayer(PlanLayer::Openings);
    EXPECT_EQ(shown(), std::pair(true, false));
    pickLayer(PlanLayer::Terrain);
    EXPECT_EQ(shown(), std::pair(true, true)) << "the site stands in no storey and belongs to each";
    pickLayer(PlanLayer::Openings);
    EXPECT_EQ(shown(), std::pair(false, true));
}

TEST_F(PlanContent, SaysHowManyElementsHaveNoPlaceInIt) {
    const auto said = [this] {
        const auto& label = *window().findChild<QLabel*>(QStringLiteral("unplaced"));
        return label.isVisible() ? label.text().toStdString() : "";
    };
    EXPECT_EQ(said(), "");
    // The wall stands where two axes of a grid meet, which is not followed; with it its door and its windows.
    openChanged({{"#415=IFCLOCALPLACEMENT(#310,#414)", "#415=IFCGRIDPLACEMENT(#310,$,$)"}});
    EXPECT_SOON(said() == "Without a place in the plan: 3 elements");
    pickLayer(PlanLayer::Openings);
    EXPECT_SOON(said() == "Without a place in the plan: 5 elements");
    openSample();
    EXPECT_SOON(said() == "");
}

TEST_F(PlanContent, AnnotationsAreDrawnOnceAskedFor) {
    const std::string wall = "=IFCWALL('1BT$3tXgf7hux8BKYFEwZP',#5,'Au\\X2\\00DF\\X0\\enwand S\\X2\\00FC\\X0\\d',$,$,";
    openChanged({{wall, "=IFCANNOTATION('1BT$3tXgf7hux8BKYFEwZP',#5,'Dimensions',$,$,"},
                 {"#415,#423,'AW-01',.SOLIDWALL.)", "#415,#423)"}});
    EXPECT_EQ(footprint(Wall), nullptr);
    pickLayer(PlanLayer::Annotations);
    EXPECT_NE(footprint(Wall), nullptr);
}

TEST_F(PlanContent, RoomsAndFurnitureCanBeLeftOut) {
    EXPECT_NE(footprintOf("IfcSpace", "001"), nullptr);
    pickLayer(PlanLayer::Rooms);
    EXPECT_EQ(footprintOf("IfcSpace", "001"), nullptr);
    EXPECT_NE(footprintOf("IfcFurniture", "Sofa"), nullptr);
    pickLayer(PlanLayer::Furniture);
    EXPECT_EQ(footprintOf("IfcFurniture", "Sofa"), nullptr);
    EXPECT_NE(footprint(Wall), nullptr) << "what is built is always drawn";
}

TEST_F(PlanContent, LayersAreRemembered) {
    pickLayer(PlanLayer::Openings);
    pickLayer(PlanLayer::Rooms);
    start();
    openSample();
    EXPECT_SOON(drawn());
    EXPECT_NE(footprintOf("IfcOpeningElement", "Öffnung Haustür"), nullptr);
    EXPECT_EQ(footprintOf("IfcSpace", "001"), nullptr);
    QStringList on;
    for (const QAction* action : window().plan().layersButton()->menu()->actions()) {
        if (action->isChecked()) on += action->text();
    }
    EXPECT_EQ(on, QStringList({QStringLiteral("&Furniture and Equipment"), QStringLiteral("&Grid"),
                               QStringLiteral("&Openings")}));
}

TEST_F(PlanContent, WhatIsNotShownIsNotRead) {
    int openings = 0;
    const model::Model& model = *window().document().model();
    view().geometry().forEach([&](const desktop::Footprint& footprint) {
        openings += model.planKind(footprint.element) == PlanKind::Opening;
    });
    EXPECT_EQ(openings, 0);
}

// --- Rooms ---

TEST_F(PlanContent, RoomsBearNumberNameAndArea) {
    const desktop::PlanLabel* label = labelOf("001");
    ASSERT_NE(label, nullptr);
    EXPECT_EQ(label->number, QStringLiteral("001"));
    EXPECT_EQ(label->name, QStringLiteral("Küche"));
    EXPECT_EQ(label->area, QStringLiteral("%1 m²").arg(QLocale::system().toString(16.9, 'f', 1)));
}

TEST_F(PlanContent, RoomWithoutAQuantityHasTheAreaOfItsOutline) {
    openChanged({{"IFCQUANTITYAREA('NetFloorArea',$,$,16.8896,$)", "IFCQUANTITYAREA('NetWallArea',$,$,99.,$)"}});
    EXPECT_EQ(labelOf("001")->area, QStringLiteral("%1 m²").arg(QLocale::system().toString(16.9, 'f', 1)));
    openChanged({{"IFCQUANTITYAREA('NetFloorArea',$,$,16.8896,$)", "IFCQUANTITYAREA('NetWallArea',$,$,99.,$)"},
                 {"#100=IFCSIUNIT(*,.LENGTHUNIT.,$,.METRE.)", "#100=IFCSIUNIT(*,.LENGTHUNIT.,.DECI.,.METRE.)"}});
    EXPECT_EQ(labelOf("001")->area, QStringLiteral("%1 m²").arg(QLocale::system().toString(0.2, 'f', 1)));
}

TEST_F(PlanContent, RoomIsRenamedInThePlanAsSoonAsItIsInTheModel) {
    const model::Element room = footprintOf("IfcSpace", "001")->element;
    const std::string guid = desktop::guidText(window().document().index()->guid(room)).toStdString();
    review(guid + "\tLongName\t\tSpeisekammer\n", [&](desktop::AddOnDialog& dialog) {
        clickCell(dialog, 1, 1);
        clickItem(dialog, ApplyItem);
        EXPECT_EQ(labelOf("001")->name, QStringLiteral("Speisekammer"));
    });
    window().document().undo();
    EXPECT_EQ(labelOf("001")->name, QStringLiteral("Küche"));
}

TEST_F(PlanContent, RoomsAreWrittenOnWhereThereIsRoom) {
    const desktop::PlanLabel* label = labelOf("001");
    // Something as dark as a text, in a box around the label: nothing else in the kitchen is.
    const auto written = [&](int width, int height) {
        const QImage picture = view().grab().toImage();
        const QPointF middle = view().viewport().toScreen(label->middle) * view().devicePixelRatio();
        for (int y = -height; y <= height; ++y) {
            for (int x = -width; x <= width; ++x) {
                const QPoint at = middle.toPoint() + QPoint(x, y);
                if (picture.rect().contains(at) && picture.pixelColor(at).lightness() < 90) return true;
            }
        }
        return false;
    };
    zoomTo(label->middle, 60);
    EXPECT_TRUE(written(24, 8));
    zoomTo(label->middle, 4);
    EXPECT_FALSE(written(4, 3));
}

QSizeF inTens(const QString& line) {
    return {10.0 * static_cast<double>(line.size()), 10};
}

TEST(RoomLabel, SaysAsMuchAsFits) {
    desktop::PlanLabel label;
    label.number = QStringLiteral("12");
    label.name = QStringLiteral("Kitchen");
    label.area = QStringLiteral("9 m²");
    const auto fitting = [&](double width, double height) {
        return desktop::fittingLines(label, {width, height}, inTens).join(u'|').toStdString();
    };
    EXPECT_EQ(fitting(100, 20), "12 Kitchen|9 m²");
    EXPECT_EQ(fitting(99, 30), "12|Kitchen|9 m²");
    EXPECT_EQ(fitting(99, 29), "12|9 m²");
    EXPECT_EQ(fitting(100, 19), "12 Kitchen");
    EXPECT_EQ(fitting(20, 10), "12");
    EXPECT_EQ(fitting(19, 10), "");
    EXPECT_EQ(fitting(100, 9), "");
    label = {};
    EXPECT_EQ(fitting(1000, 1000), "");
}

TEST(RoomLabel, StandsInsideOfAnAngle) {
    // The middle of its box lies in the notch.
    const QList<QPolygonF> angle{QPolygonF({{0, 0}, {10, 0}, {10, 2}, {2, 2}, {2, 10}, {0, 10}})};
    desktop::PlanLabel label;
    desktop::placeLabel(label, angle);
    EXPECT_TRUE(angle[0].containsPoint(label.middle, Qt::OddEvenFill));
    EXPECT_GT(label.room.width(), 5) << "in the leg that lies";
    EXPECT_LE(label.room.height(), 2.01);
}

TEST(RoomLabel, OfNonsenseHasNoRoom) {
    const double nan = std::numeric_limits<double>::quiet_NaN(), inf = std::numeric_limits<double>::infinity();
    for (const QPolygonF& ring : {QPolygonF(), QPolygonF({{1, 1}}), QPolygonF(QList<QPointF>{{0, 0}, {1, 1}}),
                                  QPolygonF({{nan, 0}, {1, nan}, {0, 1}}), QPolygonF({{0, 0}, {inf, 0}, {0, inf}})}) {
        desktop::PlanLabel label;
        desktop::placeLabel(label, {ring});
        EXPECT_FALSE(label.room.width() > 1e300 && label.room.height() > 1e300);
    }
    desktop::PlanLabel label;
    for (const double area : {nan, inf, -1.0, 0.0, 1e300}) {
        desktop::setRoomTexts(label, {u"1", u"A\nroom\u202E", area}, {});
        EXPECT_EQ(label.area, QString()) << area;
    }
    EXPECT_FALSE(label.name.contains(u'\n'));
    EXPECT_FALSE(label.name.contains(QChar(0x202E))) << "it would turn what stands beside it";
}

// --- Tones ---

TEST_F(PlanContent, CutWallsAreDarkAndWhatLiesBelowIsLight) {
    ASSERT_TRUE(footprint(Wall)->cut);
    EXPECT_EQ(colorAt(middleOfFirstPart(element(Wall))), fill(PlanKind::Structure, true));
    const QPointF sofa = footprintOf("IfcFurniture", "Sofa")->box.center();
    EXPECT_EQ(colorAt(sofa), fill(PlanKind::Furniture));
    EXPECT_LT(fill(PlanKind::Structure, true).lightness() + 100, fill(PlanKind::Furniture).lightness());
}

TEST_F(PlanContent, FloorsOfHigherStoreysHideNothing) {
    const QPointF sofa = footprintOf("IfcFurniture", "Sofa")->box.center();
    const model::Element element = footprintOf("IfcFurniture", "Sofa")->element;
    choice().setCurrentIndex(choice().count() - 1);
    EXPECT_SOON(drawn());
    EXPECT_EQ(view().hit(sofa, false), element);
    EXPECT_EQ(colorAt(sofa), fill(PlanKind::Furniture));
}

TEST_F(PlanContent, ParapetIsNotCut) {
    for (const auto& [height, cut] : {std::pair("1.19", false), {"1.2", true}, {"1.21", true}}) {
        openChanged({{"#421=IFCEXTRUDEDAREASOLID(#418,#420,#408,2.6)",
                      std::string("#421=IFCEXTRUDEDAREASOLID(#418,#420,#408,") + height + ")"}});
        EXPECT_EQ(footprint(Wall)->cut, cut) << height;
    }
}

TEST_F(PlanContent, DoorsHaveTheirLeafAndWindowsTheirGlass) {
    const desktop::Footprint* door = footprintOf("IfcDoor", "Haustür");
    ASSERT_EQ(door->lines.size(), 2);
    const QLineF leaf(door->lines[0].front(), door->lines[0].back());
    EXPECT_NEAR(leaf.length(), 1.1, 1e-6);
    zoomTo(leaf.center(), 300);
    const QColor floor = colorAt(leaf.center() + QPointF(0.1, 0));
    EXPECT_LT(colorAt(leaf.center()).lightness() + 40, floor.lightness());
    EXPECT_EQ(footprintOf("IfcWindow", "Küchenfenster")->lines.size(), 2);
    EXPECT_GT(footprintOf("IfcStairFlight", "Treppenlauf")->lines.size(), 12);
}

// --- Grid ---

const std::string GridText =
    "#9001=IFCCARTESIANPOINT((11.,11.));\n#9002=IFCCARTESIANPOINT((23.,11.));\n#9003=IFCPOLYLINE((#9001,#9002));\n"
    "#9004=IFCGRIDAXIS('A',#9003,.T.);\n#9005=IFCGRIDAXIS('B2',#9003,.T.);\n"
    "#9006=IFCGRID('0000000000000000000001',#5,'Grid',$,$,$,$,(#9004),(#9005),$,$);\n";

TEST_F(PlanContent, GridBelongsToEachStorey) {
    openChanged({{"ENDSEC;\nEND-ISO", GridText + "ENDSEC;\nEND-ISO"}});
    for (const char* storey : {"Erdgeschoss", "Obergeschoss"}) {
        for (int i = 0; i < choice().count(); ++i) {
            if (choice().itemText(i).startsWith(QString::fromLatin1(storey))) choice().setCurrentIndex(i);
        }
        EXPECT_SOON(drawn());
        const desktop::Footprint* grid = footprintOf("IfcGrid", "Grid");
        ASSERT_NE(grid, nullptr) << storey;
        EXPECT_EQ(view().geometry().label(grid->element)->tags,
                  QStringList({QStringLiteral("A"), QStringLiteral("B2")}));
    }
    // A line lies over what it crosses, but a click means what is there.
    const auto hit = view().hit({17, 11}, false);
    ASSERT_TRUE(hit);
    EXPECT_NE(window().document().model()->planKind(*hit), PlanKind::Grid);
    EXPECT_EQ(view().hit({11.1, 11}, false), footprintOf("IfcGrid", "Grid")->element);
    pickLayer(PlanLayer::Grid);
    EXPECT_EQ(footprintOf("IfcGrid", "Grid"), nullptr);
}

// --- Around the plan ---

TEST(ScaleBar, HasARoundLength) {
    const std::vector<std::pair<double, double>> rows = {
        {1, 1},     {1.99, 1},  {2, 2},        {4.9, 2},     {5, 5},     {9.99, 5}, {10, 10}, {123, 100},
        {0.7, 0.5}, {0.2, 0.2}, {0.1999, 0.1}, {0.05, 0.05}, {6e7, 5e7}, {0, 0},    {-1, 0}};
    for (const auto& [most, length] : rows) EXPECT_NEAR(desktop::roundLength(most), length, length * 1e-9) << most;
    for (const double most :
         {std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN(), 1e-320}) {
        EXPECT_TRUE(std::isfinite(desktop::roundLength(most))) << most;
    }
}

TEST(ScaleBar, SaysItsLengthInMetres) {
    const QLocale locale = QLocale::system();
    EXPECT_EQ(desktop::lengthText(5), QStringLiteral("5 m"));
    EXPECT_EQ(desktop::lengthText(100), QStringLiteral("100 m"));
    EXPECT_EQ(desktop::lengthText(0.5), locale.toString(0.5, 'f', 1) + QStringLiteral(" m"));
    EXPECT_EQ(desktop::lengthText(0.02), locale.toString(0.02, 'f', 2) + QStringLiteral(" m"));
}

TEST_F(PlanContent, ScaleBarIsDrawnWhereTheLengthUnitIsKnown) {
    const auto dark = [this] {
        const QImage picture = view().grab().toImage();
        int count = 0;
        for (int x = 0; x < 30; ++x) count += picture.pixelColor(x, picture.height() - 13).lightness() < 60;
        return count;
    };
    EXPECT_GT(dark(), 10);
    openChanged({{"#100=IFCSIUNIT(*,.LENGTHUNIT.,$,.METRE.)", "#100=IFCSIUNIT(*,.TIMEUNIT.,$,.SECOND.)"}});
    EXPECT_SOON(drawn());
    EXPECT_EQ(dark(), 0);
}

TEST_F(PlanContent, NorthArrowIsDrawnWhereTheFileKnowsNorth) {
    EXPECT_FALSE(view().geometry().trueNorth()) << "the sample does not say where it is";
    const auto corner = [this] {
        const QImage picture = view().grab().toImage();
        int count = 0;
        for (int y = 0; y < 70; ++y) {
            for (int x = picture.width() - 70; x < picture.width(); ++x) {
                count += picture.pixelColor(x, y).lightness() < 60;
            }
        }
        return count;
    };
    const int before = corner();
    openChanged({{"#202=IFCGEOMETRICREPRESENTATIONCONTEXT($,'Model',3,1.E-05,#201,$)",
                  "#202=IFCGEOMETRICREPRESENTATIONCONTEXT($,'Model',3,1.E-05,#201,#9001)"},
                 {"ENDSEC;\nEND-ISO", "#9001=IFCDIRECTION((1.,1.));\nENDSEC;\nEND-ISO"}});
    EXPECT_SOON(drawn());
    ASSERT_TRUE(view().geometry().trueNorth());
    EXPECT_NEAR(view().geometry().trueNorth()->x(), std::sqrt(0.5), 1e-9);
    EXPECT_GT(corner(), before + 50);
}

TEST_F(PlanContent, StoreysAreListedWithTheirHeights) {
    const QString point = QLocale::system().decimalPoint();
    EXPECT_EQ(choice().currentText(), QStringLiteral("Erdgeschoss ±0") + point + QStringLiteral("00 m"));
    EXPECT_EQ(choice().itemText(choice().currentIndex() - 1),
              QStringLiteral("Obergeschoss +2") + point + QStringLiteral("90 m"));
    openChanged({{"#100=IFCSIUNIT(*,.LENGTHUNIT.,$,.METRE.)", "#100=IFCSIUNIT(*,.LENGTHUNIT.,.CENTI.,.METRE.)"},
                 {"#308=IFCCARTESIANPOINT((0.,0.,0.))", "#308=IFCCARTESIANPOINT((0.,0.,-12.))"}});
    EXPECT_THAT(choice().itemText(choice().count() - 2).toStdString(),
                HasSubstr((QStringLiteral("Erdgeschoss −0") + point + QStringLiteral("12 m")).toStdString()));
}

// --- Wrong values ---

TEST_F(PlanContent, OutlivesWrongValues) {
    const std::vector<std::pair<std::string, std::string>> changes = {
        {"#308=IFCCARTESIANPOINT((0.,0.,0.))", "#308=IFCCARTESIANPOINT((0.,0.,1.E300))"},
        {"#308=IFCCARTESIANPOINT((0.,0.,0.))", "#308=IFCCARTESIANPOINT((1.E30,-1.E30,0.))"},
        {"#418=IFCRECTANGLEPROFILEDEF(.AREA.,$,#417,10.,0.36)",
         "#418=IFCRECTANGLEPROFILEDEF(.AREA.,$,#417,1.E200,1.E-200)"},
        {"#705=IFCRECTANGLEPROFILEDEF(.AREA.,$,#704,4.64,3.64)",
         "#705=IFCRECTANGLEPROFILEDEF(.AREA.,$,#704,1.E9,1.E-9)"},
        {"16.8896", "1.E400"},
        {"#100=IFCSIUNIT(*,.LENGTHUNIT.,$,.METRE.)", "#100=IFCCONVERSIONBASEDUNIT(*,.LENGTHUNIT.,'ROUND',#100)"},
        {"(#202),#116)", "(#202,#202,#205,#99999),#205)"},
        {".DOOR.,.SINGLE_SWING_LEFT.,$)", ".DOOR.,.,$)"},
        {"ENDSEC;\nEND-ISO",
         "#9001=IFCCARTESIANPOINT((-1.E12,2.));\n#9002=IFCCARTESIANPOINT((1.E12,2.));\n#9003=IFCPOLYLINE((#9001,#9002))"
         ";\n"
         "#9004=IFCGRIDAXIS('A',#9003,.T.);\n#9006=IFCGRID('0000000000000000000001',#5,'Grid',$,$,$,$,(#9004),(#9006),#"
         "9004,$);\n"
         "ENDSEC;\nEND-ISO"}};
    for (const auto& change : changes) {
        openChanged({change});
        EXPECT_SOON(drawn());
        for (const double scale : {1e-5, 30.0, 1e5}) {
            zoomTo({17, 11}, scale);
            EXPECT_FALSE(view().grab().isNull()) << change.second;
        }
        EXPECT_GT(choice().count(), 2) << change.second;
    }
}

}  // namespace desktop_tests
