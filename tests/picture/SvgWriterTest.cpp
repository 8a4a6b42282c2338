#include "picture/SvgWriter.h"

#include <gtest/gtest.h>

#include <iterator>
#include <numbers>
#include <pugixml.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "picture/Icons.h"
#include "picture/Picture.h"

namespace quarnel02 {
namespace {

using Texts = std::vector<std::string>;

constexpr double kPi = std::numbers::pi;

std::string Written(const pugi::xml_node& node) {
    std::ostringstream text;
    node.print(text, "", pugi::format_raw | pugi::format_no_declaration);
    return text.str();
}

/// The document, which must be one root element. The library reads a bare "&" too, but does not
/// write it: so what was read must be written as it was.
pugi::xml_document Parsed(const std::string& svg) {
    pugi::xml_document document;
    const pugi::xml_parse_result result =
        document.load_string(svg.c_str(), pugi::parse_default | pugi::parse_ws_pcdata);
    EXPECT_TRUE(result) << result.description() << " in " << svg;
    EXPECT_EQ(std::distance(document.begin(), document.end()), 1);
    EXPECT_EQ(Written(document) + "\n", svg);
    return document;
}

/// The elements that stand on the paper, as they are written.
Texts ElementsOf(const Picture& picture) {
    const pugi::xml_document document = Parsed(ToSvg(picture));
    Texts elements;
    for (const pugi::xml_node& element : document.child("svg").children()) {
        if (element.type() == pugi::node_element) {
            elements.push_back(Written(element));
        }
    }
    if (elements.size() < 2) {
        ADD_FAILURE() << Written(document);
        return {};
    }
    EXPECT_EQ(elements[0].find("<style>"), 0U);
    EXPECT_EQ(elements[1].find("<rect "), 0U);
    return {elements.begin() + 2, elements.end()};
}

bool Contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

TEST(ToSvg, EmptyPictureIsWhitePaper) {
    const std::string svg = ToSvg(Picture(15000, 3600));
    // 15 twips to the pixel.
    EXPECT_EQ(svg.find("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"1000\" height=\"240\" "
                       "viewBox=\"0 0 15000 3600\">"),
              0U);
    EXPECT_TRUE(
        Contains(svg, "<rect x=\"0\" y=\"0\" width=\"15000\" height=\"3600\" fill=\"white\"/>"));
    EXPECT_TRUE(ElementsOf(Picture(15000, 3600)).empty());
}

TEST(ToSvg, PaperGrowsForFiguresBeyondIt) {
    Picture picture(1500, 1500);
    picture.Line(-150, 0, 3000, 1650, {});
    const std::string svg = ToSvg(picture);
    EXPECT_TRUE(Contains(svg, "width=\"210\" height=\"110\" viewBox=\"-150 0 3150 1650\""));
    EXPECT_TRUE(
        Contains(svg, "<rect x=\"-150\" y=\"0\" width=\"3150\" height=\"1650\" fill=\"white\"/>"));
}

TEST(ToSvg, WritesLines) {
    Picture picture(1000, 1000);
    picture.DrawWidth = 2;
    picture.Line(1, 2.345, 300, 400.5, {200, 0, 50});
    EXPECT_EQ(ElementsOf(picture), Texts{"<line x1=\"1\" y1=\"2.35\" x2=\"300\" y2=\"400.5\" "
                                         "stroke=\"rgb(200,0,50)\" stroke-width=\"30\"/>"});
}

TEST(ToSvg, WritesFullCircles) {
    Picture picture(1000, 1000);
    picture.Circle(500, 600, 50, {0, 0, 127});
    picture.Fill = FillStyle::Solid;
    picture.Circle(500, 600, 50, {}, 0, 2 * kPi, 0.5);
    EXPECT_EQ(ElementsOf(picture),
              (Texts{"<ellipse cx=\"500\" cy=\"600\" rx=\"50\" ry=\"50\" fill=\"none\" "
                     "stroke=\"rgb(0,0,127)\" stroke-width=\"15\"/>",
                     "<ellipse cx=\"500\" cy=\"600\" rx=\"50\" ry=\"25\" fill=\"rgb(0,0,0)\" "
                     "stroke=\"rgb(0,0,0)\" stroke-width=\"15\"/>"}));
}

/// The arc's sweep flag 0 leads counter-clockwise on the screen: from right to left over the
/// top, from left to right under the bottom.
TEST(ToSvg, WritesTheUpperHalfFromRightToLeft) {
    Picture picture(15000, 3600);
    picture.Circle(1000, 1500, 400, {125, 125, 125}, 0, kPi, 0.25);
    EXPECT_EQ(ElementsOf(picture),
              Texts{"<path d=\"M 1400 1500 A 400 100 0 0 0 600 1500\" fill=\"none\" "
                    "stroke=\"rgb(125,125,125)\" stroke-width=\"15\"/>"});
}

TEST(ToSvg, WritesTheLowerHalfFromLeftToRight) {
    Picture picture(15000, 3600);
    picture.DrawWidth = 4;
    picture.Circle(1000, 1500, 400, {250, 0, 50}, kPi, 2 * kPi, 0.25);
    EXPECT_EQ(ElementsOf(picture),
              Texts{"<path d=\"M 600 1500 A 400 100 0 0 0 1400 1500\" fill=\"none\" "
                    "stroke=\"rgb(250,0,50)\" stroke-width=\"60\"/>"});
}

TEST(ToSvg, WritesOtherPartsOfAnEllipse) {
    Picture picture(15000, 3600);
    picture.Circle(1000, 1500, 400, {}, 0, kPi / 2, 1);
    picture.Fill = FillStyle::Solid;
    picture.Circle(1000, 1500, 400, {}, kPi / 2, 2 * kPi, 1);
    const Texts elements = ElementsOf(picture);
    ASSERT_EQ(elements.size(), 2U);
    EXPECT_TRUE(Contains(elements[0], "d=\"M 1400 1500 A 400 400 0 0 0 1000 1100\" fill=\"none\""))
        << elements[0];
    EXPECT_TRUE(
        Contains(elements[1], "d=\"M 1000 1100 A 400 400 0 1 0 1400 1500\" fill=\"rgb(0,0,0)\""))
        << elements[1];
}

TEST(ToSvg, WritesTexts) {
    Picture picture(5000, 1000);
    picture.TextFont = {FontFamily::Proportional, 10};
    picture.CurrentX = 100;
    picture.CurrentY = 200;
    picture.Print("Qty: 2", {1, 2, 3});
    picture.TextFont = {FontFamily::FixedPitch, 10};
    picture.CurrentX = 0;
    picture.Print("abc");
    // 10 points are 200 twips; the base line lies 0.95 of that below the top: 200 + 190.
    EXPECT_EQ(
        ElementsOf(picture),
        (Texts{"<text xml:space=\"preserve\" x=\"100\" y=\"390\" font-size=\"200\" class=\"label\" "
               "fill=\"rgb(1,2,3)\">Qty: 2</text>",
               "<text xml:space=\"preserve\" x=\"0\" y=\"390\" font-size=\"200\" class=\"fixed\" "
               "fill=\"rgb(0,0,0)\" textLength=\"360\">abc</text>"}));
}

TEST(ToSvg, EscapesTexts) {
    Picture picture(5000, 1000);
    picture.Print("<a & \"b\"> Größe\t\1x");
    const Texts elements = ElementsOf(picture);
    ASSERT_EQ(elements.size(), 1U);
    EXPECT_TRUE(Contains(elements[0], ">&lt;a &amp; \"b\"&gt; Größe  x</text>")) << elements[0];
}

TEST(ToSvg, KeepsTheBlanksOfTexts) {
    Picture picture(5000, 1000);
    picture.PrintNumber(5);
    const std::string svg = ToSvg(picture);
    EXPECT_TRUE(Contains(svg, "> 5 </text>"));
    EXPECT_TRUE(Contains(svg, "text{white-space:pre}"));
}

TEST(ToSvg, WritesIconsInTheirSquare) {
    for (const ResourceType type : {ResourceType::Manual, ResourceType::Fixed,
                                    ResourceType::Programmable, ResourceType::Automated}) {
        Picture picture(5000, 1000);
        picture.Icon(type, 100, 200, 900);
        const Texts elements = ElementsOf(picture);
        ASSERT_EQ(elements.size(), 1U);
        EXPECT_EQ(elements[0].find("<g transform=\"translate(100 200) scale(900)\"><"), 0U);
        std::size_t shapes = 0;
        for (std::size_t at = elements[0].find(" fill="); at != std::string::npos;
             at = elements[0].find(" fill=", at + 1)) {
            ++shapes;
        }
        EXPECT_EQ(shapes, IconShapes(type).size());
    }
}

TEST(ToSvg, WritesIconShapesAsTheyAre) {
    Picture picture(5000, 1000);
    picture.Icon(ResourceType::Manual, 0, 0, 900);
    const Texts elements = ElementsOf(picture);
    ASSERT_EQ(elements.size(), 1U);
    // The top of the bench, the person's head and hand.
    EXPECT_TRUE(Contains(elements[0],
                         "<polygon points=\"0.5,0.62 0.98,0.62 0.98,0.7 0.5,0.7\" "
                         "fill=\"rgb(150,106,62)\"/>"));
    EXPECT_TRUE(Contains(elements[0],
                         "<circle cx=\"0.3\" cy=\"0.2\" r=\"0.13\" fill=\"rgb(224,172,130)\"/>"));
    EXPECT_TRUE(Contains(elements[0],
                         "<circle cx=\"0.71\" cy=\"0.56\" r=\"0.055\" fill=\"rgb(224,172,130)\"/>"))
        << elements[0];
}

TEST(ToSvg, PaintsInDrawingOrder) {
    Picture picture(1000, 1000);
    picture.Print("a");
    picture.Line(0, 0, 1, 1, {});
    picture.Icon(ResourceType::Fixed, 0, 0, 10);
    picture.Circle(500, 600, 50, {});
    const Texts elements = ElementsOf(picture);
    ASSERT_EQ(elements.size(), 4U);
    EXPECT_EQ(elements[0].find("<text"), 0U);
    EXPECT_EQ(elements[1].find("<line"), 0U);
    EXPECT_EQ(elements[2].find("<g"), 0U);
    EXPECT_EQ(elements[3].find("<ellipse"), 0U);
}

}  // namespace
}  // namespace quarnel02
