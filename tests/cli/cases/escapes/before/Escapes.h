void f()
{
    g("first\r\nsecond\twith \x1b[31mcolour");
    g("-\n-");
}
