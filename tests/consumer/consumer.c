/* A program outside the tree: lists the objects of the document that it is given. */
#include <stdio.h>
#include <zqxml/zqxml.h>

int main(int argc, char **argv)
{
    ZQXMLInputDoc doc = {ZQXML_INPUT_FILE, argc > 1 ? argv[1] : NULL};
    ZQXMLParserHandle parser;
    ZQUnsignedIntList kinds, types;
    ZQNameList names;
    ZQStatusList status = {0, NULL};
    int result = CreateXMLParserHandle(&parser, &status);
    if (result == 0)
        result = GetListXMLObjects(&parser, &doc, &kinds, &names, &types, &status);
    for (uint32_t i = 0; result == 0 && i < names.numItems; i++)
        printf("%#x %s\n", (unsigned)kinds.items[i], names.items[i]);
    return result;
}
