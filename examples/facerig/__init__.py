"""The example face: its joints, its poses, and the files made of them."""
