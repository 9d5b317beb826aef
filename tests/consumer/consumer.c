/* A program outside the tree: lists the objects of the document that it is given. */
#include <stdio.h>
#include <zqxml/zqxml.h>

int main(int argc, char **argv)
{
    ZQXMLInputDoc doc = {ZQXML_INPUT_FILE, argc > 1 ? argv[1] : NULL};
    ZQXMLParserHandle parser = {NULL};
    ZQUnsignedIntList kinds, types;
    ZQNameList names;
    int result = CreateXMLParserHandle(&parser, NULL);
    result |= GetListXMLObjects(&parser, &doc, &kinds, &names, &types, NULL);
    for (uint32_t i = 0; i < names.numItems; i++)
        printf("%#x %s\n", (unsigned)kinds.items[i], names.items[i]);
    FreeZQUnsignedIntList(&kinds, 0);
    FreeZQUnsignedIntList(&types, 0);
    FreeZQNameList(&names, 0);
    FreeZQXMLParserHandleInternal(&parser, 0);
    return result;
}
