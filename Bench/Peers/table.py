"""Tables in Markdown."""


def number(value):
    """In three digits, more before the point."""
    return f"{value:,.0f}" if value >= 100 else f"{value:.3g}"


def print_table(head, rows):
    for cells in (head, ["---"] * len(head), *rows):
        print(f"| {' | '.join(cells)} |")
