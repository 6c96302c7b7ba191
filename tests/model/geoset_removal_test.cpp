#include "model/geoset_removal.h"

#include <gtest/gtest.h>

#include "model_texts.h"

namespace corvane {
namespace {

std::string without(const std::string& text, int geosetNumber) {
    const ModelText model("hero.mdl", text);
    return removeGeoset(model, geosetNumber).joined();
}

std::string geoset(const std::string& material) {
    return "Geoset {\n\tMaterialID " + material + ",\n\tAnim {\n\t\tBoundsRadius 1,\n\t}\n}\n";
}

std::string animation(const std::string& geosetId) {
    return "GeosetAnim {\n\tAlpha 2 {\n\t\t0: 1,\n\t}\n\tGeosetId " + geosetId + ",\n}\n";
}

std::string bone(const std::string& name, const std::string& geosetId,
                 const std::string& geosetAnimId) {
    return "Bone \"" + name + "\" {\n\tObjectId 0,\n\tGeosetId " + geosetId + ",\n\tGeosetAnimId " +
           geosetAnimId + ",\n}\n";
}

const std::string kHead = "// h\xE9ros \nVersion {\n\tFormatVersion 800,\n}\n";
const std::string kTail = "PivotPoints 1 {\n\t{ 0.000, 0, 0 },\n}\n";

// Three geosets, each with an animation. Every block is followed by one that opens.
const std::string kModel = kHead + geoset("10") + geoset("20") + geoset("30") + animation("0") +
                           animation("1") + animation("2") + bone("A", "0", "0") +
                           bone("B", "1", "1") + bone("C", "2", "2") +
                           bone("D", "Multiple", "None") + kTail;

TEST(RemoveGeoset, RemovesTheSecondOfThree) {
    EXPECT_EQ(without(kModel, 2), kHead + geoset("10") + geoset("30") + animation("0") +
                                      animation("1") + bone("A", "0", "0") +
                                      bone("B", "Multiple", "None") + bone("C", "1", "1") +
                                      bone("D", "Multiple", "None") + kTail);
}

TEST(RemoveGeoset, RemovesTheFirstOfThree) {
    EXPECT_EQ(without(kModel, 1), kHead + geoset("20") + geoset("30") + animation("0") +
                                      animation("1") + bone("A", "Multiple", "None") +
                                      bone("B", "0", "0") + bone("C", "1", "1") +
                                      bone("D", "Multiple", "None") + kTail);
}

TEST(RemoveGeoset, RemovesTheLastOfThree) {
    EXPECT_EQ(without(kModel, 3), kHead + geoset("10") + geoset("20") + animation("0") +
                                      animation("1") + bone("A", "0", "0") + bone("B", "1", "1") +
                                      bone("C", "Multiple", "None") +
                                      bone("D", "Multiple", "None") + kTail);
}

TEST(RemoveGeoset, RemovesTheOnlyGeoset) {
    EXPECT_EQ(without(kHead + geoset("10") + animation("0") + bone("A", "0", "0"), 1),
              kHead + bone("A", "Multiple", "None"));
}

TEST(RemoveGeoset, WritesTheSameWithCarriageReturns) {
    EXPECT_EQ(without(withCrLf(kModel), 2),
              withCrLf(kHead + geoset("10") + geoset("30") + animation("0") + animation("1") +
                       bone("A", "0", "0") + bone("B", "Multiple", "None") + bone("C", "1", "1") +
                       bone("D", "Multiple", "None") + kTail));
}

TEST(RemoveGeoset, KeepsAByteOrderMarkBeforeTheGeosetItself) {
    EXPECT_EQ(without("\xEF\xBB\xBF" + geoset("10") + geoset("20"), 1),
              "\xEF\xBB\xBF" + geoset("20"));
}

TEST(RemoveGeoset, KeepsAByteOrderMark) {
    EXPECT_EQ(without("\xEF\xBB\xBF" + kHead + geoset("10") + geoset("20"), 1),
              "\xEF\xBB\xBF" + kHead + geoset("20"));
    EXPECT_EQ(without("\xEF\xBB\xBF" + geoset("10") + geoset("20"), 2),
              "\xEF\xBB\xBF" + geoset("10"));
}

// The animations' order is their own: it need not be that of the geosets.
TEST(RemoveGeoset, CountsAnimationsByTheirPlaceInTheFile) {
    const std::string text = kHead + geoset("10") + geoset("20") + geoset("30") + animation("2") +
                             animation("0") + animation("1") + bone("A", "0", "1") +
                             bone("B", "1", "2") + bone("C", "2", "0");
    EXPECT_EQ(without(text, 1), kHead + geoset("20") + geoset("30") + animation("1") +
                                    animation("0") + bone("A", "Multiple", "None") +
                                    bone("B", "0", "1") + bone("C", "1", "0"));
}

TEST(RemoveGeoset, FindsAnimationsThatStandBeforeTheGeosets) {
    const std::string text = animation("0") + animation("1") + geoset("10") + geoset("20") +
                             bone("A", "0", "0") + bone("B", "1", "1");
    EXPECT_EQ(without(text, 1),
              animation("0") + geoset("20") + bone("A", "Multiple", "None") + bone("B", "0", "0"));
}

TEST(RemoveGeoset, RemovesTheFirstOfSeveralAnimationsOfTheGeoset) {
    const std::string text = geoset("10") + geoset("20") + animation("0") + animation("1") +
                             animation("1") + bone("A", "1", "2");
    EXPECT_EQ(without(text, 2),
              geoset("10") + animation("0") + animation("Multiple") + bone("A", "Multiple", "1"));
}

TEST(RemoveGeoset, ChangesNoAnimationIdsInAModelWithoutAnimations) {
    const std::string text = kHead + geoset("10") + geoset("20") + geoset("30") +
                             bone("A", "0", "0") + bone("B", "1", "1") + bone("C", "2", "5");
    EXPECT_EQ(without(text, 2), kHead + geoset("10") + geoset("30") + bone("A", "0", "0") +
                                    bone("B", "Multiple", "1") + bone("C", "1", "5"));
}

TEST(RemoveGeoset, ChangesNoAnimationIdsWhereNoAnimationNamesTheGeoset) {
    const std::string text = kHead + geoset("10") + geoset("20") + animation("0") +
                             bone("A", "0", "0") + bone("B", "1", "None") + bone("C", "1", "1");
    EXPECT_EQ(without(text, 2), kHead + geoset("10") + animation("0") + bone("A", "0", "0") +
                                    bone("B", "Multiple", "None") + bone("C", "Multiple", "1"));
}

TEST(RemoveGeoset, RemovesNoBlockForANumberThatTheFileDoesNotHave) {
    const std::string text = kHead + geoset("10") + geoset("20") + bone("A", "1", "0") +
                             bone("B", "2", "1") + bone("C", "4", "2");
    EXPECT_EQ(without(text, 3), kHead + geoset("10") + geoset("20") + bone("A", "1", "0") +
                                    bone("B", "Multiple", "1") + bone("C", "3", "2"));
}

// The animation names a geoset that is not there, and is kept like all that is not removed.
TEST(RemoveGeoset, RemovesNoAnimationWithoutItsGeoset) {
    const std::string text = kHead + geoset("10") + animation("0") + animation("1") +
                             animation("2") + bone("A", "0", "0") + bone("B", "2", "2");
    EXPECT_EQ(without(text, 2), kHead + geoset("10") + animation("0") + animation("Multiple") +
                                    animation("1") + bone("A", "0", "0") + bone("B", "1", "2"));
}

TEST(RemoveGeoset, DropsTheLineAfterTheBlocks) {
    const std::string text = kHead + geoset("10") + "\n" + geoset("20") + "// between\n" +
                             animation("0") + "// zero\n" + animation("1") + "\n" +
                             bone("A", "1", "1");
    EXPECT_EQ(without(text, 1),
              kHead + geoset("20") + "// between\n" + animation("0") + "\n" + bone("A", "0", "0"));
}

TEST(RemoveGeoset, DropsOnlyOneLineAfterABlock) {
    EXPECT_EQ(without(geoset("10") + "\n\n" + geoset("20"), 1), "\n" + geoset("20"));
    EXPECT_EQ(without(geoset("10") + "a\nb\n", 1), "b\n");
}

TEST(RemoveGeoset, KeepsALineAfterTheBlockThatOpensABlock) {
    EXPECT_EQ(without(geoset("10") + "Light \"L\" {\n\tObjectId 0,\n}\n", 1),
              "Light \"L\" {\n\tObjectId 0,\n}\n");
    EXPECT_EQ(without(withCrLf(geoset("10") + "Light \"L\" {\n\tObjectId 0,\n}\n"), 1),
              "Light \"L\" {\r\n\tObjectId 0,\r\n}\r\n");
    EXPECT_EQ(without(geoset("10") + "Light \"L\" { \t\n\tObjectId 0,\n}\n", 1),
              "Light \"L\" { \t\n\tObjectId 0,\n}\n");
}

// A line after the block that is dropped is dropped with the number in it.
TEST(RemoveGeoset, DropsALineWithANumberAfterTheBlock) {
    EXPECT_EQ(without(geoset("10") + "\tGeosetId 1,\n\tGeosetId 1,\n", 1), "\tGeosetId 0,\n");
}

TEST(RemoveGeoset, HandlesTheKeptLineLikeAnyOther) {
    // The line after the geoset opens the animation that goes too, and the line after that opens
    // the next animation.
    EXPECT_EQ(without(geoset("10") + animation("0") + animation("1") + bone("A", "1", "1"), 1),
              animation("0") + bone("A", "0", "0"));
    // The line after the animation opens the geoset.
    EXPECT_EQ(without(animation("0") + geoset("10") + geoset("20"), 1), geoset("20"));
}

TEST(RemoveGeoset, TakesBlocksAtTheEndOfTheFile) {
    EXPECT_EQ(without(geoset("10") + geoset("20"), 2), geoset("10"));
    const std::string cut = geoset("20").substr(0, geoset("20").size() - 1);
    EXPECT_EQ(without(geoset("10") + cut, 2), geoset("10"));
    EXPECT_EQ(without(geoset("10") + cut, 1), cut);
    EXPECT_EQ(without(geoset("10") + geoset("20") + "last", 2), geoset("10"));
    EXPECT_EQ(without(geoset("10") + "Geoset {\n\tMaterialID 20,\n", 2), geoset("10"));
    EXPECT_EQ(without(geoset("10") + animation("0"), 1), "");
}

TEST(RemoveGeoset, LeavesIdsAloneThatAreUnsetOrUnreadable) {
    const std::string odd =
        "Bone \"GeosetId 5,\" {\n"
        "\tGeosetId Multiple,\n"
        "\tGeosetId 5, // was Multiple\n"
        "\tGeosetId x,\n"
        "\tGeosetId ,\n"
        "\tGeosetId 1.5,\n"
        "\tGeosetIds 5,\n"
        "\tGeosetId 5 6,\n"
        "\t// GeosetId 5,\n"
        "\tGeosetAnimId None,\n"
        "\tGeosetAnimId 5, // was None\n"
        "\tGeosetAnimId x,\n"
        "\tGeosetAnimId ,\n"
        "}\n";
    EXPECT_EQ(without(kHead + geoset("10") + animation("0") + odd, 1), kHead + odd);
}

TEST(RemoveGeoset, RenumbersIdsInAnyLayoutAndNothingBesideThem) {
    const auto odd = [](const std::string& geosetId, const std::string& animId) {
        return "Bone \"A\" { ObjectId 0, GeosetId " + geosetId + ", GeosetAnimId " + animId +
               " }\n"
               "Helper \"B\" {\n"
               "  GeosetId   " +
               geosetId +
               " ,  // was 7\n"
               "GeosetAnimId " +
               animId +
               "\n"
               "\t\tGeosetId\t" +
               geosetId +
               ",\r\n"
               "}\n";
    };
    const std::string text = geoset("10") + geoset("20") + animation("0") + animation("1");
    EXPECT_EQ(without(text + odd("1", "1"), 1), geoset("20") + animation("0") + odd("0", "0"));
    EXPECT_EQ(without(text + odd("1", "1"), 2),
              geoset("10") + animation("0") + odd("Multiple", "None"));
}

TEST(RemoveGeoset, LeavesIdsBeforeTheRemovedOneByteForByte) {
    const std::string bones =
        "Bone \"A\" {\n"
        "\tGeosetId  0 , // first\n"
        "\tGeosetAnimId  0 ,\t\n"
        "}\n";
    EXPECT_EQ(without(geoset("10") + geoset("20") + animation("0") + animation("1") + bones, 2),
              geoset("10") + animation("0") + bones);
}

TEST(RemoveGeoset, RenumbersOtherNodesToo) {
    const std::string text =
        geoset("10") + geoset("20") + animation("0") + animation("1") +
        "Light \"L\" {\n\tObjectId 3,\n\tGeosetId 1,\n\tGeosetAnimId 1,\n\tParent 1,\n}\n";
    EXPECT_EQ(without(text, 1),
              geoset("20") + animation("0") +
                  "Light \"L\" {\n\tObjectId 3,\n\tGeosetId 0,\n\tGeosetAnimId 0,\n\tParent "
                  "1,\n}\n");
}

TEST(RemoveGeoset, KeepsALastLineWithoutABreak) {
    EXPECT_EQ(without(geoset("10") + geoset("20") + "Bone \"A\" {\n\tGeosetId 1,\n}", 1),
              geoset("20") + "Bone \"A\" {\n\tGeosetId 0,\n}");
    EXPECT_EQ(without(geoset("10") + geoset("20") + "Bone \"A\" {\n\tGeosetId 1,", 1),
              geoset("20") + "Bone \"A\" {\n\tGeosetId 0,");
}

TEST(RemoveGeoset, EndsChangedLinesAsTheyEnded) {
    EXPECT_EQ(without(geoset("10") + geoset("20") +
                          "Bone \"A\" {\n\tGeosetId 1,\r\n\tGeosetAnimId 1,\n}\n",
                      1),
              geoset("20") + "Bone \"A\" {\n\tGeosetId 0,\r\n\tGeosetAnimId 1,\n}\n");
}

// An animation that opens and closes on one line does not reach into the blocks after it.
TEST(RemoveGeoset, TakesAnAnimationOnOneLineForABlock) {
    const std::string text = geoset("10") + geoset("20") +
                             "GeosetAnim { static Alpha 1, GeosetId 1, }\n" +
                             bone("A", "0", "None") + bone("B", "1", "None");
    EXPECT_EQ(without(text, 1), geoset("20") + "GeosetAnim { static Alpha 1, GeosetId 0, }\n" +
                                    bone("A", "Multiple", "None") + bone("B", "0", "None"));
    EXPECT_EQ(without(text, 2),
              geoset("10") + bone("A", "0", "None") + bone("B", "Multiple", "None"));
}

// Not even where its line ends in another brace than the one that opens it.
TEST(RemoveGeoset, KeepsABlockOnOneLineAfterTheRemovedOne) {
    const std::string light = "Light \"L\" { ObjectId 0, }\n";
    EXPECT_EQ(without(geoset("10") + light, 1), light);
    EXPECT_EQ(without(geoset("10") + "Light \"L\"\n{\n}\n", 1), "Light \"L\"\n{\n}\n");
    EXPECT_EQ(without("Geoset { MaterialID 0, } " + light, 1), " " + light);
}

TEST(RemoveGeoset, CountsAnimationsOnOneLine) {
    EXPECT_EQ(without(geoset("10") + "GeosetAnim { static Alpha 1, }\n" + animation("1") +
                          animation("0") + geoset("20") + bone("A", "1", "2"),
                      1),
              "GeosetAnim { static Alpha 1, }\n" + animation("0") + geoset("20") +
                  bone("A", "0", "None"));
}

TEST(RemoveGeoset, LeavesAModelThatHoldsOneGeosetLess) {
    const std::string text = without(kModel, 2);
    EXPECT_EQ(scanGeosets(kModel).size(), 3U);
    EXPECT_EQ(scanGeosets(text).size(), 2U);
}

}  // namespace
}  // namespace corvane
