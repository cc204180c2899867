#include "dlglib/base/scaled_images.h"

#include <gtest/gtest.h>

#include <limits>

#include "dlglib/resources/resource.h"

namespace {

using scale::Scale;
using scaled_images::BitmapResource;
using scaled_images::IconResource;
using scaled_images::IconSide;

TEST(ScaledImagesTest, AnIconIsNeverLongerThanItsRoom) {
  EXPECT_EQ(IconSide(16), 16);
  EXPECT_EQ(IconSide(19), 16);
  EXPECT_EQ(IconSide(20), 20);
  EXPECT_EQ(IconSide(31), 28);
  EXPECT_EQ(IconSide(64), 64);
  EXPECT_EQ(IconSide(79), 64);
  EXPECT_EQ(IconSide(96), 96);
  EXPECT_EQ(IconSide(320), 96);
  EXPECT_EQ(IconSide(std::numeric_limits<int>::max()), 96);
}

TEST(ScaledImagesTest, TheShortestIconStandsForWhatIsShorter) {
  EXPECT_EQ(IconSide(8), 16);
  EXPECT_EQ(IconSide(0), 16);
  EXPECT_EQ(IconSide(-1), 16);
}

TEST(ScaledImagesTest, EveryUsualScaleHasIconsOfItsOwn) {
  for (const int dpi : {96, 120, 144, 168, 192, 240, 288}) {
    EXPECT_EQ(IconSide(Scale(dpi).ToScreen(16)), Scale(dpi).ToScreen(16)) << dpi;
    EXPECT_EQ(IconSide(Scale(dpi).ToScreen(32)), Scale(dpi).ToScreen(32)) << dpi;
  }
}

TEST(ScaledImagesTest, SixteenAndThirtyTwoPixelsAreOfTheFirstDrawing) {
  EXPECT_EQ(IconResource(IDI_FOLDER, 16), IDI_FOLDER);
  EXPECT_EQ(IconResource(IDI_FOLDER, 32), IDI_FOLDER);
  EXPECT_EQ(IconResource(IDI_FOLDER, 20), 20078);
  EXPECT_EQ(IconResource(IDI_FOLDER, 96), 20078);
}

TEST(ScaledImagesTest, ABitmapIsThatOfTheNearestScaleBelow) {
  EXPECT_EQ(BitmapResource(IDB_UP, Scale(72)), IDB_UP);
  EXPECT_EQ(BitmapResource(IDB_UP, Scale(96)), IDB_UP);
  EXPECT_EQ(BitmapResource(IDB_UP, Scale(119)), IDB_UP);
  EXPECT_EQ(BitmapResource(IDB_UP, Scale(120)), 11098);
  EXPECT_EQ(BitmapResource(IDB_UP, Scale(144)), 12098);
  EXPECT_EQ(BitmapResource(IDB_UP, Scale(168)), 13098);
  EXPECT_EQ(BitmapResource(IDB_UP, Scale(192)), 14098);
  EXPECT_EQ(BitmapResource(IDB_UP, Scale(239)), 14098);
  EXPECT_EQ(BitmapResource(IDB_UP, Scale(240)), 15098);
  EXPECT_EQ(BitmapResource(IDB_UP, Scale(288)), 16098);
  EXPECT_EQ(BitmapResource(IDB_UP, Scale(960)), 16098);
}

}  // namespace
