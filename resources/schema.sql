-- The household database. Table and column names are the program's
-- vocabulary, odd spellings included (Recipie, Isle, Desert, Carbohyrdates);
-- the program finds them without regard to case, so they stay as they are.
--
-- Declared types tell the engine how a column reads and writes
-- (platform/Database.cpp): VARCHAR(n) text is cut at n characters,
-- DATETEXT holds an ISO date, a word such as "None" or "Never", or "";
-- BOOLEAN is 0/1, CURRENCY is four-decimal money, SMALLINT is 16-bit.
-- Text compares without regard to case, as the household expects.
--
-- There are no foreign keys: rows refer to each other by name, and a rename
-- walks every table that copies the name.

-- Recipes ------------------------------------------------------------------

CREATE TABLE "Recipie" (
    "ID"            INTEGER PRIMARY KEY AUTOINCREMENT,
    "Title"         VARCHAR(255) COLLATE NOCASE,
    "Style"         VARCHAR(255) COLLATE NOCASE,
    "Course"        VARCHAR(255) COLLATE NOCASE,
    "PrepTime"      VARCHAR(255) COLLATE NOCASE,
    "Servings"      VARCHAR(255) COLLATE NOCASE,
    "Favorite"      BOOLEAN DEFAULT 0,
    "CookbookName"  VARCHAR(255) COLLATE NOCASE,
    "TimesUsed"     INTEGER,
    "Ingredient1"   VARCHAR(100) COLLATE NOCASE,
    "Ingredient2"   VARCHAR(100) COLLATE NOCASE,
    "Ingredient3"   VARCHAR(100) COLLATE NOCASE,
    "Ingredient4"   VARCHAR(100) COLLATE NOCASE,
    "Ingredient5"   VARCHAR(100) COLLATE NOCASE,
    "Ingredient6"   VARCHAR(100) COLLATE NOCASE,
    "Ingredient7"   VARCHAR(100) COLLATE NOCASE,
    "Ingredient8"   VARCHAR(100) COLLATE NOCASE,
    "Ingredient9"   VARCHAR(100) COLLATE NOCASE,
    "Ingredient10"  VARCHAR(100) COLLATE NOCASE,
    "Ingredient11"  VARCHAR(100) COLLATE NOCASE,
    "Ingredient12"  VARCHAR(100) COLLATE NOCASE,
    "Ingredient13"  VARCHAR(100) COLLATE NOCASE,
    "Ingredient14"  VARCHAR(100) COLLATE NOCASE,
    "Ingredient15"  VARCHAR(100) COLLATE NOCASE,
    "Ingredient16"  VARCHAR(100) COLLATE NOCASE,
    "Ingredient17"  VARCHAR(100) COLLATE NOCASE,
    "Ingredient18"  VARCHAR(100) COLLATE NOCASE,
    "ingredient19"  VARCHAR(100) COLLATE NOCASE,
    "ingredient20"  VARCHAR(100) COLLATE NOCASE,
    "Instructions"  LONGTEXT COLLATE NOCASE,
    -- "" rather than NULL, so that [ImageFile] <> '' finds exactly the recipes with a picture
    "ImageFile"     VARCHAR(255) COLLATE NOCASE DEFAULT ''
);

CREATE TABLE "RecipieCategory" (
    "Name"          VARCHAR(255) COLLATE NOCASE
);

CREATE TABLE "Cookbook" (
    "Name"          VARCHAR(255) COLLATE NOCASE,
    "Specialty"     VARCHAR(255) COLLATE NOCASE
);

CREATE TABLE "Course" (
    "Category"      VARCHAR(255) COLLATE NOCASE,
    "Course"        VARCHAR(255) COLLATE NOCASE
);

CREATE TABLE "History" (
    "Category"      VARCHAR(255) COLLATE NOCASE,
    "TimesUsed"     INTEGER
);

CREATE TABLE "IngredientMap" (
    "RecipeIngredient"   VARCHAR(255) COLLATE NOCASE,
    "NutritionItemName"  VARCHAR(255) COLLATE NOCASE
);

CREATE TABLE "IngredientSubstitution" (
    "RecipeIngredient"      VARCHAR(255) COLLATE NOCASE,
    "SubstituteIngredient"  VARCHAR(255) COLLATE NOCASE
);

-- ID is the key of the row commented on, not a key of its own.
CREATE TABLE "Comments" (
    "ID"            INTEGER,
    "Comment"       LONGTEXT COLLATE NOCASE
);

-- Drink details of a recipe; ID is the recipe's ID.
CREATE TABLE "Drinks" (
    "ID"            INTEGER,
    "Glass"         VARCHAR(255) COLLATE NOCASE,
    "Category"      VARCHAR(255) COLLATE NOCASE,
    "ServingTemp"   VARCHAR(255) COLLATE NOCASE,
    "TempScale"     VARCHAR(255) COLLATE NOCASE,
    "Favorite"      BOOLEAN DEFAULT 0,
    "Rating"        INTEGER
);

-- Meals ---------------------------------------------------------------------

CREATE TABLE "Meal" (
    "ID"            INTEGER PRIMARY KEY AUTOINCREMENT,
    "Name"          VARCHAR(80) COLLATE NOCASE,
    "Meal"          VARCHAR(50) COLLATE NOCASE,
    "Category"      VARCHAR(50) COLLATE NOCASE,
    "Dates"         DATETEXT(255) COLLATE NOCASE,
    "Appetizer"     VARCHAR(255) COLLATE NOCASE,
    "MainCourse"    VARCHAR(255) COLLATE NOCASE,
    "SideDishOne"   VARCHAR(255) COLLATE NOCASE,
    "SideDishTwo"   VARCHAR(255) COLLATE NOCASE,
    "SideDishThree" VARCHAR(255) COLLATE NOCASE,
    "SideDishfour"  VARCHAR(255) COLLATE NOCASE,
    "Desert"        VARCHAR(255) COLLATE NOCASE,
    "Favorite"      BOOLEAN DEFAULT 0,
    "Cheap"         BOOLEAN DEFAULT 0
);

CREATE TABLE "MealCategory" (
    "Category"      VARCHAR(255) COLLATE NOCASE
);

CREATE TABLE "MealItems" (
    "MealItemName"      VARCHAR(255) COLLATE NOCASE,
    "MealItemQuantity"  INTEGER,
    "MealItemListName"  VARCHAR(255) COLLATE NOCASE,
    "MealItemComments"  VARCHAR(255) COLLATE NOCASE
);

CREATE TABLE "Guests" (
    "ID"            INTEGER PRIMARY KEY AUTOINCREMENT,
    "GuestName"     VARCHAR(255) COLLATE NOCASE,
    "GuestEmail"    VARCHAR(255) COLLATE NOCASE,
    "GuestComment"  VARCHAR(255) COLLATE NOCASE
);

CREATE TABLE "GuestServed" (
    "GuestName"     VARCHAR(255) COLLATE NOCASE,
    "RecipeName"    VARCHAR(255) COLLATE NOCASE
);

-- Shopping lists: one row per item, each repeating its list's header columns.

CREATE TABLE "ShopList" (
    "ID"                INTEGER PRIMARY KEY AUTOINCREMENT,
    "Name"              VARCHAR(255) COLLATE NOCASE,
    "Store"             VARCHAR(255) COLLATE NOCASE,
    "Dates"             DATETEXT(255) COLLATE NOCASE,
    "ItemName"          VARCHAR(50) COLLATE NOCASE,
    "ItemQuantity"      VARCHAR(255) COLLATE NOCASE,
    "ItemManufacturer"  VARCHAR(255) COLLATE NOCASE,
    "ItemSize"          VARCHAR(255) COLLATE NOCASE,
    "ItemStyle"         VARCHAR(255) COLLATE NOCASE,
    "ItemCost"          CURRENCY,
    "ItemCoupon"        VARCHAR(255) COLLATE NOCASE,
    "Coupon"            BOOLEAN DEFAULT 0,
    "CouponID"          INTEGER,
    "Recurring"         VARCHAR(255) COLLATE NOCASE,
    "IsCurrent"         BOOLEAN DEFAULT 0,
    "ItemSource"        VARCHAR(255) COLLATE NOCASE,
    "ShopIsle"          VARCHAR(255) COLLATE NOCASE,
    -- a 16-bit walking-order key; an item never marked for a store sorts as 0
    "ShopOrder"         SMALLINT DEFAULT 0,
    "PalmSynch"         BOOLEAN DEFAULT 0
);

-- Stores and aisles -------------------------------------------------------

CREATE TABLE "Store" (
    "Name"          VARCHAR(255) COLLATE NOCASE,
    "isles"         INTEGER,
    "FaxNumber"     VARCHAR(255) COLLATE NOCASE
);

CREATE TABLE "IsleMap" (
    "ID"            INTEGER PRIMARY KEY AUTOINCREMENT,
    "Store"         VARCHAR(255) COLLATE NOCASE,
    "ItemCategory"  VARCHAR(255) COLLATE NOCASE,
    "Isle"          VARCHAR(255) COLLATE NOCASE,
    "IsleOrder"     INTEGER
);

CREATE TABLE "AlternateIsleMap" (
    "ID"                INTEGER PRIMARY KEY AUTOINCREMENT,
    "StoreName"         VARCHAR(255) COLLATE NOCASE,
    "ItemName"          VARCHAR(255) COLLATE NOCASE,
    "ItemManufacturer"  VARCHAR(255) COLLATE NOCASE,
    "StoreIsle"         VARCHAR(255) COLLATE NOCASE,
    "StoreIsleOrder"    INTEGER
);

CREATE TABLE "ItemCategory" (
    "ID"            INTEGER PRIMARY KEY AUTOINCREMENT,
    "Name"          VARCHAR(255) COLLATE NOCASE
);

-- Coupons -----------------------------------------------------------------

CREATE TABLE "Coupons" (
    "ID"              INTEGER PRIMARY KEY AUTOINCREMENT,
    "Manufacturer"    VARCHAR(255) COLLATE NOCASE,
    "Product"         VARCHAR(255) COLLATE NOCASE,
    "Size"            VARCHAR(255) COLLATE NOCASE,
    "Value"           VARCHAR(255) COLLATE NOCASE,
    "DiscountDouble"  VARCHAR(255) COLLATE NOCASE,
    "Expiration"      DATETEXT(255) COLLATE NOCASE,
    "Quantity"        VARCHAR(255) COLLATE NOCASE,
    "Category"        VARCHAR(255) COLLATE NOCASE,
    "Store"           VARCHAR(255) COLLATE NOCASE,
    -- a new coupon is written without an owner; empty and NULL both mean free
    "OwnerList"       VARCHAR(255) COLLATE NOCASE,
    "MarkForPurge"    BOOLEAN DEFAULT 0,
    "Comments"        VARCHAR(255) COLLATE NOCASE
);

CREATE TABLE "Delivery" (
    "FoodType"      VARCHAR(255) COLLATE NOCASE,
    "Restaurant"    VARCHAR(255) COLLATE NOCASE,
    "Item"          VARCHAR(255) COLLATE NOCASE,
    "CarryOutOnly"  BOOLEAN DEFAULT 0,
    "Value"         CURRENCY,
    "ActualValue"   CURRENCY,
    "Expiration"    DATETEXT(255) COLLATE NOCASE
);

-- Products and spending ---------------------------------------------------

CREATE TABLE "Product" (
    "ID"                     INTEGER PRIMARY KEY AUTOINCREMENT,
    "Manufacturer"           VARCHAR(255) COLLATE NOCASE,
    "Name"                   VARCHAR(255) COLLATE NOCASE,
    "Size"                   VARCHAR(255) COLLATE NOCASE,
    "Category"               VARCHAR(255) COLLATE NOCASE,
    "Cost"                   CURRENCY,
    "lookout"                BOOLEAN DEFAULT 0,
    "lastpurchasedquantity"  INTEGER,
    -- 1950-01-01 and earlier mean "not on hand"
    "LastPurchasedDate"      DATETIME,
    "TimesPurchased"         INTEGER,
    "Barcode"                VARCHAR(255) COLLATE NOCASE,
    "UPC_Number"             VARCHAR(255) COLLATE NOCASE,
    "UPC_Family"             VARCHAR(255) COLLATE NOCASE
);

CREATE TABLE "Manufacturer" (
    "ID"            INTEGER PRIMARY KEY AUTOINCREMENT,
    "Name"          VARCHAR(255) COLLATE NOCASE,
    "UPC_Number"    VARCHAR(255) COLLATE NOCASE
);

CREATE TABLE "SpendHistory" (
    "SpendID"       INTEGER PRIMARY KEY AUTOINCREMENT,
    "ItemID"        INTEGER,
    "ItemListDate"  DATETIME,
    "ItemListName"  VARCHAR(255) COLLATE NOCASE,
    "ItemListCost"  CURRENCY,
    "ItemStore"     VARCHAR(255) COLLATE NOCASE,
    "CouponID"      INTEGER,
    "ItemCouponID"  INTEGER
);

-- Measures and nutrition --------------------------------------------------

-- Name is the measure as the conversion chart knows it; Abbreviation its
-- unique short form.
CREATE TABLE "ItemSize" (
    "Name"          VARCHAR(255) COLLATE NOCASE,
    "Abbreviation"  VARCHAR(255) COLLATE NOCASE
);

-- Abbreviation is the unit as written in a recipe's ingredient.
CREATE TABLE "Abbreviation" (
    "ID"            INTEGER PRIMARY KEY AUTOINCREMENT,
    "Abbreviation"  VARCHAR(255) COLLATE NOCASE,
    "Description"   VARCHAR(255) COLLATE NOCASE
);

-- A square chart stored cell by cell, indexes from 1:
-- 1 <RowDescription> = <ConversionConstant> <ColumnDescription>.
CREATE TABLE "Conversion" (
    "ID"                  INTEGER PRIMARY KEY AUTOINCREMENT,
    "RowIndex"            INTEGER,
    "ColumnIndex"         INTEGER,
    "RowDescription"      VARCHAR(255) COLLATE NOCASE,
    "ColumnDescription"   VARCHAR(255) COLLATE NOCASE,
    "ConversionConstant"  DOUBLE
);

-- One food per row, values per 100 g of the edible part (USDA Standard
-- Reference). ID is assigned by the data script, not by the store.
CREATE TABLE "Nutrition" (
    "ID"                         INTEGER,
    "NDB_No"                     VARCHAR(255) COLLATE NOCASE,
    "Item"                       VARCHAR(255) COLLATE NOCASE,
    "Calories"                   DOUBLE,
    "Protein"                    DOUBLE,
    "Carbohyrdates"              DOUBLE,
    "Dietary_fibre"              DOUBLE,
    "ash"                        DOUBLE,
    "Calcium"                    DOUBLE,
    "Iron"                       DOUBLE,
    "Sodium"                     DOUBLE,
    "Potassium"                  DOUBLE,
    "magnesium"                  DOUBLE,
    "zinc"                       DOUBLE,
    "copper"                     DOUBLE,
    "Thiamin"                    DOUBLE,
    "Vitamin_a"                  DOUBLE,
    "Vitamin_e"                  DOUBLE,
    "Vitamin_C"                  DOUBLE,
    "Riboflavin"                 DOUBLE,
    "Niacin"                     DOUBLE,
    "Vitamin_B6"                 DOUBLE,
    "vitamin_b12"                DOUBLE,
    "saturated_fat"              DOUBLE,
    "Monounsqaturated_fat"       DOUBLE,
    "Polyunsaturated_Fat"        DOUBLE,
    "Cholesterol"                DOUBLE,
    "Fat Calories"               DOUBLE,
    "Total Fat"                  DOUBLE,
    "Gram_Weight_1"              DOUBLE,
    "Gram_Weight_1_Description"  VARCHAR(255) COLLATE NOCASE,
    "Gram_Weight_2"              DOUBLE,
    "Gram_Weight_2_Description"  VARCHAR(255) COLLATE NOCASE
);

-- Messages and reminders --------------------------------------------------

CREATE TABLE "Messages" (
    "Title"         VARCHAR(50) COLLATE NOCASE,
    "Body"          LONGTEXT COLLATE NOCASE,
    "Date"          DATETEXT(255) COLLATE NOCASE,
    "Type"          INTEGER,
    "ReminderTime"  INTEGER
);

-- Indexes on the names rows are looked up by. Every text column compares
-- without case, and so does each index built on one, so = lookups use them.

CREATE INDEX "idx_Recipie_Title"                 ON "Recipie" ("Title");
CREATE INDEX "idx_Recipie_CookbookName"          ON "Recipie" ("CookbookName");
CREATE INDEX "idx_RecipieCategory_Name"          ON "RecipieCategory" ("Name");
CREATE INDEX "idx_Cookbook_Name"                 ON "Cookbook" ("Name");
CREATE INDEX "idx_Course_Category"               ON "Course" ("Category");
CREATE INDEX "idx_History_Category"              ON "History" ("Category");
CREATE INDEX "idx_IngredientMap_RecipeIngredient" ON "IngredientMap" ("RecipeIngredient");
CREATE INDEX "idx_IngredientSubstitution_RecipeIngredient" ON "IngredientSubstitution" ("RecipeIngredient");
CREATE INDEX "idx_Comments_ID"                   ON "Comments" ("ID");
CREATE INDEX "idx_Drinks_ID"                     ON "Drinks" ("ID");
CREATE INDEX "idx_Meal_Name"                     ON "Meal" ("Name");
CREATE INDEX "idx_Meal_Dates"                    ON "Meal" ("Dates");
CREATE INDEX "idx_MealCategory_Category"         ON "MealCategory" ("Category");
CREATE INDEX "idx_MealItems_MealItemListName"    ON "MealItems" ("MealItemListName");
CREATE INDEX "idx_GuestServed_GuestName"         ON "GuestServed" ("GuestName");
CREATE INDEX "idx_ShopList_Name"                 ON "ShopList" ("Name", "ItemName", "IsCurrent");
CREATE INDEX "idx_ShopList_IsCurrent"            ON "ShopList" ("IsCurrent");
CREATE INDEX "idx_ShopList_ItemName"             ON "ShopList" ("ItemName");
CREATE INDEX "idx_Store_Name"                    ON "Store" ("Name");
CREATE INDEX "idx_IsleMap_Store"                 ON "IsleMap" ("Store", "ItemCategory");
CREATE INDEX "idx_AlternateIsleMap_StoreName"    ON "AlternateIsleMap" ("StoreName");
CREATE INDEX "idx_ItemCategory_Name"             ON "ItemCategory" ("Name");
CREATE INDEX "idx_Coupons_Manufacturer"          ON "Coupons" ("Manufacturer");
CREATE INDEX "idx_Coupons_OwnerList"             ON "Coupons" ("OwnerList");
CREATE INDEX "idx_Coupons_Product"               ON "Coupons" ("Product");
CREATE INDEX "idx_Product_Name"                  ON "Product" ("Name");
CREATE INDEX "idx_Product_Barcode"               ON "Product" ("Barcode");
CREATE INDEX "idx_Product_LastPurchasedDate"     ON "Product" ("LastPurchasedDate");
CREATE INDEX "idx_Manufacturer_Name"             ON "Manufacturer" ("Name");
CREATE INDEX "idx_SpendHistory_ItemID"           ON "SpendHistory" ("ItemID");
CREATE INDEX "idx_ItemSize_Name"                 ON "ItemSize" ("Name");
CREATE INDEX "idx_ItemSize_Abbreviation"         ON "ItemSize" ("Abbreviation");
CREATE INDEX "idx_Abbreviation_Abbreviation"     ON "Abbreviation" ("Abbreviation");
CREATE INDEX "idx_Conversion_RowDescription"     ON "Conversion" ("RowDescription", "ColumnDescription");
CREATE INDEX "idx_Nutrition_Item"                ON "Nutrition" ("Item");
CREATE INDEX "idx_Messages_Title"                ON "Messages" ("Title");
