// The statements that create the combination tables. The program drops and creates them again with each generation,
// so these texts are also what a listener sees.
#include "workspace/templates.h"

namespace workspace {

namespace {

struct CombinationTable {
    std::string_view name;
    std::string_view create;
};

// fig7 is the blue, in zuhef the seventh red; a table with R at its end holds six reds and no blue.
constexpr CombinationTable kCombinationTables[] = {
    {"zuhe",
     "CREATE TABLE [zuhe]([idx] integer,[fig1] integer,[fig2] integer,[fig3] integer,[fig4] integer,[fig5] integer,"
     "[fig6] integer,[fig7] integer,[canshu] integer,[Numstring] string,[SKnum] integer,[JSqihao] long,[Fliter] "
     "string,[unslt] Bit,[preunslt] Bit,[tmpunslt] bit,[Gpslt] bit,[Errnum] integer)"},
    {"zuheR",
     "CREATE TABLE [zuheR]([idx] integer,[fig1] integer,[fig2] integer,[fig3] integer,[fig4] integer,[fig5] integer,"
     "[fig6] integer,[canshu] integer,[Numstring] string,[SKnum] integer,[JSqihao] long,[Fliter] string,[unslt] "
     "Bit,[preunslt] Bit,[tmpunslt] bit,[Gpslt] bit,[Errnum] integer)"},
    {"zuheRote",
     "CREATE TABLE [zuheRote]([idx] integer,[fig1] integer,[fig2] integer,[fig3] integer,[fig4] integer,[fig5] "
     "integer,[fig6] integer,[fig7] integer,[canshu] integer,[Numstring] string,[SKnum] integer,[JSqihao] "
     "long,[Fliter] string,[unslt] Bit,[preunslt] Bit,[tmpunslt] bit,[Gpslt] bit,[Errnum] integer)"},
    {"zuheRoteR",
     "CREATE TABLE [zuheRoteR]([idx] integer,[fig1] integer,[fig2] integer,[fig3] integer,[fig4] integer,[fig5] "
     "integer,[fig6] integer,[canshu] integer,[Numstring] string,[SKnum] integer,[JSqihao] long,[Fliter] "
     "string,[unslt] Bit,[preunslt] Bit,[tmpunslt] bit,[Gpslt] bit,[Errnum] integer)"},
    {"zuheRead",
     "CREATE TABLE [zuheRead]([idx] integer,[fig1] integer,[fig2] integer,[fig3] integer,[fig4] integer,[fig5] "
     "integer,[fig6] integer,[fig7] integer,[canshu] integer,[Numstring] string,[SKnum] integer,[JSqihao] "
     "long,[fliter] string,[unslt] bit,[preunslt] bit,[tmpunslt] bit,[Gpslt] bit,[Errnum] integer)"},
    {"zuheReadR",
     "CREATE TABLE [zuheReadR]([idx] integer,[fig1] integer,[fig2] integer,[fig3] integer,[fig4] integer,[fig5] "
     "integer,[fig6] integer,[canshu] integer,[Numstring] string,[SKnum] integer,[JSqihao] long,[fliter] "
     "string,[unslt] bit,[preunslt] bit,[tmpunslt] bit,[Gpslt] bit,[Errnum] integer)"},
    {"zuheMoban", // elsewhere made by SELECT … INTO and completed column by column
     "CREATE TABLE [zuheMoban]([idx] integer,[fig1] integer,[fig2] integer,[fig3] integer,[fig4] integer,[fig5] "
     "integer,[fig6] integer,[fig7] integer,[canshu] integer,[Numstring] string,[SKnum] integer,[JSqihao] "
     "long,[Fliter] string,[unslt] Bit,[preunslt] Bit,[tmpunslt] bit,[Gpslt] bit,[Errnum] integer)"},
    {"zuheMobanR",
     "CREATE TABLE [zuheMobanR]([idx] integer,[fig1] integer,[fig2] integer,[fig3] integer,[fig4] integer,[fig5] "
     "integer,[fig6] integer,[canshu] integer,[Numstring] string,[SKnum] integer,[JSqihao] long,[Fliter] "
     "string,[unslt] Bit,[preunslt] Bit,[tmpunslt] bit,[Gpslt] bit,[Errnum] integer)"},
    {"zuhef", "CREATE TABLE [zuhef]([idx] integer,[fig1] integer,[fig2] integer,[fig3] integer,[fig4] integer,[fig5] "
              "integer,[fig6] integer,[fig7] integer,[canshu] integer,[Numstring] string,[Fliter] string,[unslt] "
              "Bit,[preunslt] Bit,[tmpunslt] bit,[Gpslt] bit)"},
};

} // namespace

std::string createCombinationTable(std::string_view table) {
    for (const CombinationTable& known : kCombinationTables)
        if (known.name == table)
            return std::string(known.create);
    return {};
}

} // namespace workspace
